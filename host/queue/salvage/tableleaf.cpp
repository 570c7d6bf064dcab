#include "host/queue/salvage/tableleaf.h"

#include <QtEndian>

#include <bit>

namespace tableleaf {

namespace {

// The format of a table's leaf, as the database documents it. Numbers are big-endian.
constexpr char leafOfTable = 0x0d;
constexpr quint32 firstPage = 1;
constexpr qsizetype fileHeadSize = 100;
constexpr qsizetype cellCountAt = 3;
constexpr qsizetype leafHeadSize = 8;
constexpr qsizetype pointerSize = 2;
constexpr qsizetype nextPageSize = 4;
constexpr int longestVarint = 9;

/// Kinds of values that a row's head names; from 12 on even ones are bytes, odd ones texts.
enum Kind : qint64
{
    Null = 0,
    LongestWhole = 6,
    Double = 7,
    Zero = 8,
    One = 9,
    FirstBytes = 12,
};

/// Reads on in some bytes; stays bad once it has run over their end.
class Reader
{
public:
    Reader(const QByteArray &bytes, qsizetype at)
        : m_bytes(bytes)
        , m_at(at)
    { }

    [[nodiscard]] bool isGood() const { return m_good; }
    [[nodiscard]] qsizetype at() const { return m_at; }
    qint64 varint()
    {
        quint64 value = 0;
        for (int count = 1; count <= longestVarint; ++count) {
            const auto byte = static_cast<quint8>(next());
            if (count == longestVarint)
                return static_cast<qint64>((value << 8) | byte);
            value = (value << 7) | (byte & 0x7f);
            if ((byte & 0x80) == 0)
                break;
        }
        return static_cast<qint64>(value);
    }
    QByteArray take(qint64 size)
    {
        m_good = m_good && size >= 0 && size <= m_bytes.size() - m_at;
        if (!m_good)
            return {};
        m_at += size;
        return m_bytes.mid(m_at - size, size);
    }

private:
    char next()
    {
        m_good = m_good && m_at >= 0 && m_at < m_bytes.size();
        return m_good ? m_bytes.at(m_at++) : '\0';
    }

    const QByteArray &m_bytes;
    qsizetype m_at;
    bool m_good = true;
};

qint64 sizeOf(qint64 kind)
{
    static constexpr qint64 wholeSizes[]{0, 1, 2, 3, 4, 6, 8};
    if (kind >= FirstBytes)
        return (kind - FirstBytes) / 2;
    if (kind <= LongestWhole)
        return wholeSizes[kind];
    return kind == Double ? 8 : 0;
}

qint64 wholeNumber(const QByteArray &bytes)
{
    // The sign stands in the first byte.
    quint64 value = !bytes.isEmpty() && bytes.at(0) < 0 ? ~quint64{0} : 0;
    for (const char byte : bytes)
        value = (value << 8) | static_cast<quint8>(byte);
    return static_cast<qint64>(value);
}

QVariant valueOf(qint64 kind, const QByteArray &bytes)
{
    if (kind == Null)
        return {};
    if (kind >= FirstBytes)
        return kind % 2 == 0 ? QVariant(bytes) : QVariant(QString::fromUtf8(bytes));
    if (kind == Double)
        return std::bit_cast<double>(wholeNumber(bytes));
    if (kind == Zero || kind == One)
        return kind - Zero;
    return wholeNumber(bytes);
}

/// The values at the beginning of a row, as many as there are bytes for.
std::optional<QVariantList> valuesIn(const QByteArray &row, bool mustBeWhole)
{
    Reader head(row, 0);
    const qint64 headSize = head.varint();
    if (!head.isGood() || headSize <= 0 || headSize > row.size())
        return {};
    QVariantList values;
    Reader body(row, headSize);
    while (head.at() < headSize) {
        const qint64 kind = head.varint();
        if (!head.isGood() || kind < 0 || kind == FirstBytes - 1 || kind == FirstBytes - 2)
            return {};
        const QByteArray bytes = body.take(sizeOf(kind));
        if (!body.isGood())
            return mustBeWhole ? std::nullopt : std::optional(values);
        values.append(valueOf(kind, bytes));
    }
    return values;
}

/// A row's bytes in its own page, and where they go on.
struct Beginning
{
    QByteArray bytes;
    qint64 size = 0; ///< of the whole row
    quint32 next = 0; ///< page where it goes on
};

qint64 sizeInLeaf(qint64 size, qint64 page)
{
    const qint64 most = page - 35;
    if (size <= most)
        return size;
    const qint64 least = (page - 12) * 32 / 255 - 23;
    const qint64 fitting = least + (size - least) % (page - nextPageSize);
    return fitting <= most ? fitting : least;
}

// A row cannot be longer than the image; a size that was made up by damage mostly is.
qint64 mostBytes(const DatabaseImage &image)
{
    return qint64{image.pageCount()} * image.pageSize();
}

std::optional<Beginning> beginning(DatabaseImage &image, const Cell &cell)
{
    const QByteArray page = image.page(cell.page);
    Reader reader(page, cell.offset);
    Beginning row;
    row.size = reader.varint();
    reader.varint();
    if (!reader.isGood() || row.size <= 0 || row.size > mostBytes(image))
        return {};
    row.bytes = reader.take(sizeInLeaf(row.size, image.pageSize()));
    if (row.bytes.size() < row.size)
        row.next = qFromBigEndian<quint32>(
            reader.take(nextPageSize).leftJustified(nextPageSize, '\0').constData());
    return reader.isGood() ? std::optional(row) : std::nullopt;
}

/// The bytes of a row from all of its pages; nothing when the chain of them is broken. The last one
/// names none behind it: where one does, the page is not what it was.
std::optional<QByteArray> wholeRow(DatabaseImage &image, const Beginning &row)
{
    QByteArray bytes = row.bytes;
    quint32 next = row.next;
    while (bytes.size() < row.size) {
        const QByteArray page = image.page(next);
        if (page.isEmpty())
            return {};
        next = qFromBigEndian<quint32>(page.constData());
        bytes += page.mid(nextPageSize, row.size - bytes.size());
    }
    return row.next != 0 && next != 0 ? std::nullopt : std::optional(bytes);
}

} // namespace

QList<Cell> cells(DatabaseImage &image, quint32 page)
{
    const QByteArray bytes = image.page(page);
    const qsizetype head = page == firstPage ? fileHeadSize : 0;
    if (bytes.size() < head + leafHeadSize || bytes.at(head) != leafOfTable)
        return {};
    const auto count = qFromBigEndian<quint16>(bytes.constData() + head + cellCountAt);
    QList<Cell> found;
    for (qsizetype index = 0; index < count; ++index) {
        const qsizetype pointer = head + leafHeadSize + index * pointerSize;
        if (pointer + pointerSize > bytes.size())
            break;
        const qsizetype offset = qFromBigEndian<quint16>(bytes.constData() + pointer);
        Reader reader(bytes, offset);
        reader.varint();
        const qint64 rowNumber = reader.varint();
        if (reader.isGood())
            found.append({rowNumber, page, offset});
    }
    return found;
}

std::optional<QVariantList> values(DatabaseImage &image, const Cell &cell)
{
    const auto row = beginning(image, cell);
    const auto bytes = row ? wholeRow(image, *row) : std::nullopt;
    return bytes ? valuesIn(*bytes, true) : std::nullopt;
}

std::optional<QVariantList> firstValues(DatabaseImage &image, const Cell &cell)
{
    const auto row = beginning(image, cell);
    return row ? valuesIn(row->bytes, false) : std::nullopt;
}

} // namespace tableleaf

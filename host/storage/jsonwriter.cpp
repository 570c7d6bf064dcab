#include "host/storage/jsonwriter.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t blanksOfALevel = 4;
// Room for a hundred positions: more would be fetched from the system anew for each document.
constexpr std::size_t usualSize = std::size_t{120} * 1024;
constexpr int hexBase = 16;
// Up to there every whole number is a double of its own, and its digits are the shortest.
constexpr double wholeNumbersEnd = 9007199254740992.0;

/// The letter behind the backslash of a short escape; 0 where there is none.
char shortEscape(char16_t unit)
{
    switch (unit) {
    case u'"':
    case u'\\':
        return static_cast<char>(unit);
    case u'\b':
        return 'b';
    case u'\f':
        return 'f';
    case u'\n':
        return 'n';
    case u'\r':
        return 'r';
    case u'\t':
        return 't';
    default:
        return 0;
    }
}

bool isPlain(QChar character)
{
    return character >= u' ' && character != u'"' && character != u'\\' && !character.isSurrogate();
}

void append(std::string &bytes, const QByteArray &more)
{
    bytes.append(more.constData(), static_cast<std::size_t>(more.size()));
}

void appendEscape(std::string &bytes, char16_t unit)
{
    constexpr int digits = 4;
    bytes += '\\';
    if (const char letter = shortEscape(unit))
        bytes += letter;
    else
        append(bytes, 'u' + QByteArray::number(unit, hexBase).rightJustified(digits, '0'));
}

void appendWhole(std::string &bytes, qint64 number)
{
    std::array<char, std::numeric_limits<qint64>::digits10 + 2> digits{}; // one more, and a sign
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    bytes.append(digits.data(), end);
}

// Appends what the text begins with and is not plain; how much of the text that was.
qsizetype appendSpecial(std::string &bytes, QStringView text)
{
    if (text.front().isHighSurrogate() && text.size() > 1 && text[1].isLowSurrogate()) {
        append(bytes, text.first(2).toUtf8());
        return 2;
    }
    appendEscape(bytes, text.front().unicode());
    return 1;
}

} // namespace

JsonWriter::JsonWriter()
{
    m_bytes.reserve(usualSize);
}

QByteArray JsonWriter::written() const
{
    return QByteArray::fromStdString(m_bytes);
}

void JsonWriter::begin(char bracket)
{
    place();
    m_bytes += bracket;
    m_bytes += '\n';
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::end(char bracket)
{
    if (!m_isFirst)
        m_bytes += '\n';
    --m_depth;
    indent();
    m_bytes += bracket;
    if (m_depth == 0)
        m_bytes += '\n';
    m_isFirst = false;
}

void JsonWriter::place()
{
    if (m_hasKey || m_depth == 0) {
        m_hasKey = false;
        return;
    }
    if (!m_isFirst)
        m_bytes += ",\n";
    m_isFirst = false;
    indent();
}

void JsonWriter::indent()
{
    m_bytes.append(blanksOfALevel * m_depth, ' ');
}

void JsonWriter::key(QLatin1String name)
{
    place();
    m_bytes += '"';
    m_bytes.append(name.data(), static_cast<std::size_t>(name.size()));
    m_bytes += "\": ";
    m_hasKey = true;
}

void JsonWriter::key(const QString &name)
{
    place();
    quote(name);
    m_bytes += ": ";
    m_hasKey = true;
}

void JsonWriter::null()
{
    place();
    m_bytes += "null";
}

void JsonWriter::value(bool flag)
{
    place();
    m_bytes += flag ? "true" : "false";
}

void JsonWriter::value(int number)
{
    place();
    appendWhole(m_bytes, number);
}

void JsonWriter::value(double number)
{
    place();
    const bool isMinusZero = number == 0.0 && std::signbit(number);
    if (!std::isfinite(number) || isMinusZero)
        append(m_bytes, "\"0x" + QByteArray::number(std::bit_cast<quint64>(number), hexBase) + '"');
    else if (std::abs(number) < wholeNumbersEnd && std::trunc(number) == number)
        appendWhole(m_bytes, static_cast<qint64>(number));
    else
        append(m_bytes, QByteArray::number(number, 'g', QLocale::FloatingPointShortest));
}

void JsonWriter::value(const QString &text)
{
    place();
    quote(text);
}

void JsonWriter::value(const QDateTime &time)
{
    if (time.isValid())
        value(time.toString(Qt::ISODateWithMs));
    else
        null();
}

void JsonWriter::quote(QStringView text)
{
    m_bytes += '"';
    while (!text.isEmpty()) {
        const auto plain = std::find_if_not(text.cbegin(), text.cend(), isPlain) - text.cbegin();
        append(m_bytes, text.first(plain).toUtf8());
        text = text.sliced(plain);
        if (!text.isEmpty())
            text = text.sliced(appendSpecial(m_bytes, text));
    }
    m_bytes += '"';
}

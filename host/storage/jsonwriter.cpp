#include "host/storage/jsonwriter.h"

#include <QLocale>

#include <algorithm>
#include <bit>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype blanksOfALevel = 4;
constexpr qsizetype usualSize = 16384;
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
    constexpr char16_t asciiEnd = 0x80;
    const char16_t unit = character.unicode();
    return unit >= u' ' && unit < asciiEnd && unit != u'"' && unit != u'\\';
}

void appendEscape(QByteArray &bytes, char16_t unit)
{
    constexpr int digits = 4;
    bytes += '\\';
    if (const char letter = shortEscape(unit))
        bytes += letter;
    else
        bytes += 'u' + QByteArray::number(unit, hexBase).rightJustified(digits, '0');
}

// Appends what the text begins with and is not plain; how much of the text that was.
qsizetype appendSpecial(QByteArray &bytes, QStringView text)
{
    const QChar first = text.front();
    if (first.isHighSurrogate() && text.size() > 1 && text[1].isLowSurrogate()) {
        bytes += text.first(2).toUtf8();
        return 2;
    }
    if (first < u' ' || first == u'"' || first == u'\\' || first.isSurrogate())
        appendEscape(bytes, first.unicode());
    else
        bytes += text.first(1).toUtf8();
    return 1;
}

} // namespace

JsonWriter::JsonWriter()
{
    m_bytes.reserve(usualSize);
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
    m_bytes.append(name.data(), name.size());
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
    m_bytes += QByteArray::number(number);
}

void JsonWriter::value(double number)
{
    place();
    const bool isMinusZero = number == 0.0 && std::signbit(number);
    if (!std::isfinite(number) || isMinusZero)
        m_bytes += "\"0x" + QByteArray::number(std::bit_cast<quint64>(number), hexBase) + '"';
    else if (std::abs(number) < wholeNumbersEnd && std::trunc(number) == number)
        m_bytes += QByteArray::number(static_cast<qint64>(number));
    else
        m_bytes += QByteArray::number(number, 'g', QLocale::FloatingPointShortest);
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
        for (const QChar character : text.first(plain))
            m_bytes += character.toLatin1();
        text = text.sliced(plain);
        if (!text.isEmpty())
            text = text.sliced(appendSpecial(m_bytes, text));
    }
    m_bytes += '"';
}

#include "host/text/plaintext.h"

#include <algorithm>

namespace plaintext {

using namespace Qt::Literals::StringLiterals;

namespace {

bool breaksLine(QChar character)
{
    return character == u'\r' || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

bool turnsReadingOrder(QChar character)
{
    const auto isWithin = [character](char16_t first, char16_t last) {
        return character >= first && character <= last;
    };
    return isWithin(u'\u202A', u'\u202E') || isWithin(u'\u2066', u'\u2069');
}

bool isCommand(QChar character)
{
    return character.category() == QChar::Other_Control || turnsReadingOrder(character);
}

QChar harmless(QChar character)
{
    if (character == u'\n' || character == u'\t')
        return character;
    if (breaksLine(character))
        return u'\n';
    return isCommand(character) ? QChar(QChar::ReplacementCharacter) : character;
}

} // namespace

QString block(const QString &text)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s);
    std::transform(shown.cbegin(), shown.cend(), shown.begin(), harmless);
    return shown;
}

QString line(const QString &text)
{
    return block(text).replace(u'\n', u' ').replace(u'\t', u' ');
}

QByteArray json(const QByteArray &json)
{
    constexpr int codeDigits = 4;
    constexpr int hexadecimal = 16;
    QString escaped;
    for (const QChar character : QString::fromUtf8(json)) {
        if (harmless(character) == character)
            escaped += character;
        else
            escaped
                += u"\\u%1"_s.arg(uint{character.unicode()}, codeDigits, hexadecimal, QChar(u'0'));
    }
    return escaped.toUtf8();
}

} // namespace plaintext

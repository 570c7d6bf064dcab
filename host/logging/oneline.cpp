#include "host/logging/oneline.h"

namespace logging {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int codeDigits = 4;
constexpr int hexadecimal = 16;

bool isWrittenAsCode(QChar character)
{
    // Format characters are invisible, and some turn the reading order of what stands behind them.
    return (character.category() == QChar::Other_Control && character != u'\t')
        || character.category() == QChar::Other_Format || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

} // namespace

QString onOneLine(const QString &message)
{
    QString line;
    line.reserve(message.size());
    for (const QChar character : message) {
        if (character == u'\n')
            line.append(u"\\n"_s);
        else if (character == u'\r')
            line.append(u"\\r"_s);
        else if (isWrittenAsCode(character))
            line.append(
                u"\\u%1"_s.arg(uint{character.unicode()}, codeDigits, hexadecimal, QChar(u'0')));
        else
            line.append(character);
    }
    return line;
}

} // namespace logging

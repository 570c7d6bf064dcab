#include "client/couponmessage.h"

#include <QRegularExpression>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype notFound = -1;

qsizetype firstDelimiter(const QString &text, const QString &delimiter)
{
    return delimiter.isEmpty() ? notFound : text.indexOf(delimiter);
}

} // namespace

QString unescapedDelimiter(QString text)
{
    static const QRegularExpression escape(uR"(\\u([0-9a-fA-F]{4}))"_s);
    constexpr int hexadecimal = 16;
    qsizetype replacements = 0;
    // The search goes on at the number of replacements, not behind the last one: what an escape
    // became can begin another escape. Values in the field rely on the result being the same.
    for (auto match = escape.match(text); match.hasMatch();
         match = escape.match(text, replacements)) {
        const ushort unit = match.captured(1).toUShort(nullptr, hexadecimal);
        text.replace(match.capturedStart(), match.capturedLength(), QChar(unit));
        ++replacements;
    }
    return text;
}

QString textBeforeCoupons(const QString &text, const QString &delimiter)
{
    const qsizetype end = firstDelimiter(text, delimiter);
    return (end == notFound ? text : text.left(end)).trimmed();
}

QStringList textsOfCoupons(const QString &text, const QString &delimiter)
{
    const qsizetype start = firstDelimiter(text, delimiter);
    return start == notFound ? QStringList() : text.mid(start).split(delimiter, Qt::SkipEmptyParts);
}

} // namespace korvelLoyaltyOnline

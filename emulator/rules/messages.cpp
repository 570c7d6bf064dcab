#include "emulator/rules/messages.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

const QRegularExpression &placeholder()
{
    static const QRegularExpression expression(u"\\{([A-Za-z]+)\\}"_s);
    return expression;
}

} // namespace

const QStringList &messagePlaceholders()
{
    static const QStringList names
        = {u"holder"_s, u"card"_s, u"balance"_s, u"earned"_s, u"spent"_s, u"discount"_s, u"sum"_s};
    return names;
}

const QStringList &couponPlaceholders()
{
    static const QStringList names = messagePlaceholders() + QStringList{couponPlaceholder()};
    return names;
}

QString couponPlaceholder()
{
    return u"coupon"_s;
}

QStringList placeholdersOf(const QString &text)
{
    QStringList names;
    auto matches = placeholder().globalMatch(text);
    while (matches.hasNext())
        names.append(matches.next().captured(1));
    return names;
}

QString fillPlaceholders(const QString &text, const QMap<QString, QString> &values)
{
    QString filled;
    qsizetype written = 0;
    auto matches = placeholder().globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        filled += text.mid(written, match.capturedStart() - written);
        filled += values.value(match.captured(1), match.captured());
        written = match.capturedEnd();
    }
    return filled + text.mid(written);
}

QString chequeMessage(const QString &text, const QStringList &couponTexts)
{
    const QString delimiter = u"\u2013\u2013"_s;
    QString message = text;
    for (const QString &couponText : couponTexts)
        message += delimiter + couponText;
    return message;
}

} // namespace emulator

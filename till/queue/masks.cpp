#include "till/queue/masks.h"

#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace till::masks {

namespace {

constexpr qsizetype shownCharacters = 4;
// A shorter number would be found in sums and dates.
constexpr qsizetype shortestNumberLookedFor = 8;
const QString stars = u"********"_s;

// Ends at the next end tag, or with a text that was cut. An element without contents has none.
QRegularExpression elementNamed(const QString &name)
{
    return QRegularExpression(u"(<(?:[\\w.-]+:)?%1(?:\\s[^>]*)?(?<!/)>)(.*?)(?=</|\\z)"_s.arg(name),
        QRegularExpression::DotMatchesEverythingOption
            | QRegularExpression::UseUnicodePropertiesOption);
}

const QRegularExpression &cardElement()
{
    static const QRegularExpression pattern = elementNamed(u"CardNumber"_s);
    return pattern;
}

/// The text with the contents of the elements replaced.
template <typename Mask>
QString withContents(const QString &xml, const QRegularExpression &element, const Mask &mask)
{
    QString masked;
    qsizetype behind = 0;
    for (auto match = element.globalMatch(xml); match.hasNext();) {
        const auto found = match.next();
        masked += QStringView(xml).mid(behind, found.capturedStart(2) - behind);
        masked += mask(found.captured(2));
        behind = found.capturedEnd(2);
    }
    return masked + QStringView(xml).mid(behind);
}

QStringList cardNumbers(const QString &xml)
{
    QStringList numbers;
    for (auto match = cardElement().globalMatch(xml); match.hasNext();) {
        const QString number = match.next().captured(2).trimmed();
        if (number.size() >= shortestNumberLookedFor)
            numbers.append(number);
    }
    return numbers;
}

QString without(QString text, const QStringList &numbers)
{
    text = withoutCardNumbers(text);
    for (const QString &number : numbers)
        text.replace(number, maskedNumber(number));
    return text;
}

bool isSecret(const QString &header)
{
    static const QStringList secret{u"Authorization"_s, u"Proxy-Authorization"_s, u"Cookie"_s};
    return secret.contains(header, Qt::CaseInsensitive);
}

QString addressWithoutCredentials(const QString &address)
{
    QUrl url(address);
    if (url.userInfo().isEmpty())
        return address;
    url.setUserInfo(stars);
    return url.toString(QUrl::FullyEncoded);
}

} // namespace

QString maskedNumber(const QString &number)
{
    const qsizetype shown = number.size() >= 2 * shownCharacters ? shownCharacters : 0;
    return QString(number.size() - shown, u'*') + number.right(shown);
}

QString withoutCardNumbers(const QString &xml)
{
    return withContents(xml, cardElement(), maskedNumber);
}

QString withoutVerificationCodes(const QString &xml)
{
    static const QRegularExpression codeElement = elementNamed(u"VerificationCode"_s);
    return withContents(xml, codeElement,
        [](const QString &code) { return code.trimmed().isEmpty() ? code : stars; });
}

QueueMessage masked(const QueueMessage &message)
{
    QueueMessage shown = message;
    const QString body = QString::fromUtf8(message.body);
    const QString answer = QString::fromUtf8(message.answer);
    const QStringList numbers = cardNumbers(body) + cardNumbers(answer);
    shown.url = without(addressWithoutCredentials(message.url), numbers);
    for (auto header = shown.headers.begin(); header != shown.headers.end(); ++header)
        *header = isSecret(header.key()) ? stars : without(*header, numbers);
    shown.body = without(body, numbers).toUtf8();
    shown.answer = without(answer, numbers).toUtf8();
    shown.remark = without(message.remark, numbers);
    shown.lastError = without(message.lastError, numbers);
    return shown;
}

} // namespace till::masks

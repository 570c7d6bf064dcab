#include "tests/client/literalreader.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Values = QMap<QString, QVariant>;

template <typename Scope> QString firstText(const Scope &scope, const QString &name)
{
    const QDomNodeList found = scope.elementsByTagName(name);
    return found.isEmpty() ? QString() : found.at(0).toElement().text();
}

template <typename Scope> double firstNumber(const Scope &scope, const QString &name)
{
    return firstText(scope, name).toDouble();
}

void addAttribute(const QDomElement &attribute, Values &attributes)
{
    attributes[firstText(attribute, u"Key"_s)] = firstText(attribute, u"Value"_s);
}

Values position(const QDomElement &item)
{
    Values values;
    for (const QString &name : {u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s,
             u"ActiveChargedBonus"_s, u"ChargedStatusBonus"_s, u"WriteoffBonus"_s})
        values[name] = firstNumber(item, name);
    if (const Values attributes = literallyReadAttributes(item); !attributes.isEmpty())
        values[u"ExtendedAttributes"_s] = attributes;
    return values;
}

Values positions(const QDomDocument &answer)
{
    Values values;
    const QDomNodeList items = answer.elementsByTagName(u"Item"_s);
    for (int i = 0; i < items.size(); ++i) {
        const QDomElement item = items.at(i).toElement();
        values[firstText(item, u"PositionNumber"_s)] = position(item);
    }
    return values;
}

QStringList applicableCoupons(const QDomDocument &answer)
{
    QStringList numbers;
    const QDomNodeList coupons = answer.elementsByTagName(u"Coupon"_s);
    for (int i = 0; i < coupons.size(); ++i) {
        const QDomElement coupon = coupons.at(i).toElement();
        const QString number = firstText(coupon, u"Number"_s);
        if (firstText(coupon, u"ApplicabilityCode"_s).toInt() == 1)
            numbers << (number.isEmpty() ? firstText(coupon, u"EmissionID"_s) : number);
    }
    return numbers;
}

QString messageBefore(const QString &delimiter, const QString &text)
{
    return (text.contains(delimiter) ? text.left(text.indexOf(delimiter)) : text).trimmed();
}

QString textNaming(const QString &number, const QStringList &texts)
{
    for (const QString &text : texts)
        if (text.contains(number))
            return text.trimmed();
    return {};
}

} // namespace

QMap<QString, QVariant> literallyReadAttributes(const QDomDocument &answer)
{
    Values attributes;
    const QDomNodeList children = answer.elementsByTagName(u"ChequeResponse"_s).at(0).childNodes();
    for (int i = 0; i < children.size(); ++i)
        if (children.at(i).toElement().tagName() == u"ExtendedAttribute")
            addAttribute(children.at(i).toElement(), attributes);
    return attributes;
}

QMap<QString, QVariant> literallyReadAttributes(const QDomElement &element)
{
    Values attributes;
    const QDomNodeList found = element.elementsByTagName(u"ExtendedAttribute"_s);
    for (int i = 0; i < found.size(); ++i)
        addAttribute(found.at(i).toElement(), attributes);
    return attributes;
}

QList<QVariant> literallyReadCoupons(const QDomDocument &answer, const QString &couponDelimiter)
{
    const QString message = firstText(answer, u"ChequeMessage"_s);
    QStringList texts;
    if (message.contains(couponDelimiter))
        texts = message.mid(message.indexOf(couponDelimiter))
                    .split(couponDelimiter, Qt::SkipEmptyParts);
    QList<QVariant> coupons;
    const QDomNodeList instant = answer.elementsByTagName(u"InstantCoupon"_s);
    for (int i = 0; i < instant.size(); ++i) {
        const QString number = firstText(instant.at(i).toElement(), u"Number"_s);
        coupons << Values({{u"Number"_s, number}, {u"Message"_s, textNaming(number, texts)}});
    }
    return coupons;
}

QMap<QString, QVariant> literallyRead(const QDomDocument &answer, const QString &couponDelimiter)
{
    Values result;
    for (const QString &name : {u"AvailablePayment"_s, u"CardNormalActiveBalance"_s,
             u"ChargedStatusBonus"_s, u"ActiveChargedBonus"_s, u"TransactionID"_s, u"Processed"_s,
             u"VerificationCode"_s, u"CashierMessage"_s})
        result[name] = firstText(answer, name);
    for (const QString &name : {u"WriteoffBonus"_s, u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s})
        result[name] = firstNumber(answer, name);
    if (const Values attributes = literallyReadAttributes(answer); !attributes.isEmpty())
        result[u"ExtendedAttributes"_s] = attributes;
    result[u"ChequeMessage"_s]
        = messageBefore(couponDelimiter, firstText(answer, u"ChequeMessage"_s));
    if (const auto coupons = literallyReadCoupons(answer, couponDelimiter); !coupons.isEmpty())
        result[u"CouponsToPrint"_s] = coupons;
    result[u"Positions"_s] = positions(answer);
    result[u"ApplicableCoupons"_s] = applicableCoupons(answer);
    return result;
}

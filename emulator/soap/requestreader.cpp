#include "emulator/soap/requestreader.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

[[noreturn]] void refuse(const XmlElement &element, const QString &what)
{
    throw RequestError(u"line %1: %2"_s.arg(element.line()).arg(what));
}

QString childText(const XmlElement &parent, const char *name)
{
    return parent.child(name).text();
}

Amount amountOf(const XmlElement &element)
{
    const auto amount = Amount::parse(element.text());
    if (!amount)
        refuse(element, u"%1 must be an amount, not \"%2\""_s.arg(element.name(), element.text()));
    return *amount;
}

Amount amountNotNegative(const XmlElement &element)
{
    const Amount amount = amountOf(element);
    if (amount < Amount())
        refuse(element, u"%1 must not be negative"_s.arg(element.name()));
    return amount;
}

Quantity quantityOf(const XmlElement &element)
{
    const auto quantity = Quantity::parse(element.text());
    if (!quantity || *quantity < Quantity())
        refuse(element, u"Quantity must not be negative"_s);
    return *quantity;
}

Till readTill(const XmlElement &parent)
{
    return {childText(parent, "Organization"), childText(parent, "BusinessUnit"),
        childText(parent, "POS")};
}

QString readCard(const XmlElement &payload)
{
    return childText(payload.child("Card"), "CardNumber");
}

/// A till may put several pairs into one element. Of two pairs with one key the last one counts.
QMap<QString, QString> readAttributes(const XmlElement &parent)
{
    QMap<QString, QString> attributes;
    for (const XmlElement &element : parent.children("ExtendedAttribute")) {
        const auto keys = element.children("Key");
        const auto values = element.children("Value");
        for (std::size_t index = 0; index < keys.size(); ++index)
            attributes.insert(keys[index].text(), values[index].text());
    }
    return attributes;
}

RequestPosition readPosition(const XmlElement &item)
{
    RequestPosition position;
    position.number = childText(item, "PositionNumber").toInt();
    position.article = childText(item, "Article");
    position.price = amountNotNegative(item.child("Price"));
    position.quantity = quantityOf(item.child("Quantity"));
    position.minimumPrice = amountNotNegative(item.child("Mcp"));
    const auto sum = product(position.price, position.quantity);
    if (!sum)
        refuse(item, u"Price times Quantity is too large"_s);
    position.sum = *sum;
    position.attributes = readAttributes(item);
    return position;
}

std::vector<RequestPosition> readPositions(const XmlElement &payload)
{
    std::vector<RequestPosition> positions;
    QSet<int> numbers;
    Amount sum;
    for (const XmlElement &item : payload.children("Item")) {
        positions.push_back(readPosition(item));
        const int number = positions.back().number;
        if (numbers.contains(number))
            refuse(item, u"PositionNumber %1 is given twice"_s.arg(number));
        numbers.insert(number);
        sum += positions.back().sum;
        if (sum >= greatestAmount)
            refuse(item, u"the positions come to too much"_s);
    }
    return positions;
}

std::optional<Confirmation> readConfirmation(const XmlElement &element)
{
    if (!element)
        return {};
    return Confirmation{childText(element, "Confirm") == u"1",
        childText(element, "SendCode") == u"1", childText(element, "VerificationCode")};
}

QStringList readCoupons(const XmlElement &coupons)
{
    QStringList numbers;
    for (const XmlElement &coupon : coupons.children("Coupon"))
        numbers.append(childText(coupon, "Number"));
    return numbers;
}

SaleRequest readSale(const XmlElement &payload)
{
    SaleRequest sale;
    sale.till = readTill(payload);
    sale.card = readCard(payload);
    sale.number = childText(payload, "Number");
    sale.fiscal = payload.attribute("ChequeType") == u"Fiscal";
    sale.sum = amountOf(payload.child("Summ"));
    sale.discount = amountOf(payload.child("Discount"));
    sale.sumDiscounted = amountOf(payload.child("SummDiscounted"));
    sale.paidByBonus = amountNotNegative(payload.child("PaidByBonus"));
    sale.confirmation = readConfirmation(payload.child("WriteOffConfirm"));
    sale.coupons = readCoupons(payload.child("Coupons"));
    sale.positions = readPositions(payload);
    return sale;
}

ChequeReference readChequeReference(const XmlElement &element)
{
    // A time behind the day is passed over.
    return {readTill(element), childText(element, "Number"),
        QDate::fromString(childText(element, "DateTime"), Qt::ISODate)};
}

ReturnRequest readReturn(const XmlElement &payload)
{
    return {readTill(payload), readCard(payload), childText(payload, "Number"),
        readChequeReference(payload.child("ChequeReference")), readPositions(payload)};
}

RollbackRequest readRollback(const XmlElement &payload)
{
    return {readTill(payload), readCard(payload),
        childText(payload.child("TransactionReference"), "TransactionID")};
}

void requireFiscal(const XmlElement &payload)
{
    if (payload.attribute("ChequeType") != u"Fiscal")
        refuse(payload, u"only a sale can have the ChequeType Soft"_s);
}

/// Each form is known by the one element that no other form has.
void requireForm(const XmlElement &payload, const char *element)
{
    if (!payload.child(element))
        refuse(payload,
            u"OperationType %1 needs the element %2"_s.arg(
                childText(payload, "OperationType"), QString::fromLatin1(element)));
}

Request readCheque(const XmlElement &payload)
{
    const QString type = childText(payload, "OperationType");
    if (type == u"Sale") {
        requireForm(payload, "PaidByBonus");
        return readSale(payload);
    }
    requireFiscal(payload);
    if (type == u"Return") {
        requireForm(payload, "ChequeReference");
        return readReturn(payload);
    }
    requireForm(payload, "TransactionReference");
    return readRollback(payload);
}

} // namespace

Request readRequest(const QByteArray &bytes, const MessageSchema &schema)
{
    return readRequest(XmlDocument::parse(bytes), schema);
}

Request readRequest(const XmlDocument &document, const MessageSchema &schema)
{
    if (const QString complaint = schema.complaintAbout(document); !complaint.isEmpty())
        throw RequestError(complaint);
    const XmlElement call = document.root().child("Body").firstChild();
    if (call.name() != u"ProcessRequest")
        refuse(call, u"a request is expected, not %1"_s.arg(call.name()));
    const XmlElement payload = call.child("request").firstChild();
    if (payload.name() == u"BalanceRequest")
        return BalanceRequest{readTill(payload), readCard(payload)};
    return readCheque(payload);
}

} // namespace emulator

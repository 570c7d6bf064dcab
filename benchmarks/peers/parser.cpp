#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/values.h"

#include "common/names.h"

#include <pugixml.hpp>

#include <stdexcept>

namespace peers {

namespace {

using pugi::xml_node;

struct Name
{
    const QString &key;
    const char *element;
};

const std::array texts = {
    Name{korvel::result::availablePayment, "AvailablePayment"},
    Name{korvel::result::cardNormalActiveBalance, "CardNormalActiveBalance"},
    Name{korvel::result::chargedStatusBonus, "ChargedStatusBonus"},
    Name{korvel::result::activeChargedBonus, "ActiveChargedBonus"},
    Name{korvel::result::transactionId, "TransactionID"},
    Name{korvel::result::processed, "Processed"},
    Name{korvel::result::verificationCode, "VerificationCode"},
    Name{korvel::result::cashierMessage, "CashierMessage"},
};

const std::array numbers = {
    Name{korvel::result::writeoffBonus, "WriteoffBonus"},
    Name{korvel::result::summ, "Summ"},
    Name{korvel::result::discount, "Discount"},
    Name{korvel::result::summDiscounted, "SummDiscounted"},
};

const std::array positionNumbers = {
    Name{korvel::result::summ, "Summ"},
    Name{korvel::result::discount, "Discount"},
    Name{korvel::result::summDiscounted, "SummDiscounted"},
    Name{korvel::result::activeChargedBonus, "ActiveChargedBonus"},
    Name{korvel::result::chargedStatusBonus, "ChargedStatusBonus"},
    Name{korvel::result::writeoffBonus, "WriteoffBonus"},
};

template <typename Names>
void insertNumbers(const xml_node &parent, const Names &names, Values &result)
{
    for (const Name &name : names)
        result.insert(name.key, numberOf(parent.child_value(name.element)));
}

Values positionsOf(const xml_node &cheque)
{
    Values positions;
    for (const xml_node &item : cheque.children("Item")) {
        Values position;
        insertNumbers(item, positionNumbers, position);
        positions.insert(textOf(item.child_value("PositionNumber")), position);
    }
    return positions;
}

QStringList applicableCoupons(const xml_node &cheque)
{
    QStringList applicable;
    for (const xml_node &coupon : cheque.child("Coupons").children("Coupon"))
        if (std::string_view(coupon.child_value("ApplicabilityCode")) == "1")
            applicable.append(textOf(coupon.child_value("Number")));
    return applicable;
}

QStringList instantCoupons(const xml_node &cheque)
{
    QStringList numbersOfCoupons;
    for (const xml_node &coupon : cheque.child("InstantCoupons").children("InstantCoupon"))
        numbersOfCoupons.append(textOf(coupon.child_value("Number")));
    return numbersOfCoupons;
}

void appendText(xml_node parent, const char *name, const std::string &text)
{
    parent.append_child(name).text().set(text.c_str());
}

void appendItem(xml_node payload, const GoodsItem &position)
{
    xml_node item = payload.append_child("Item");
    item.append_child("PositionNumber").text().set(position.getPosnum());
    appendText(item, "Article", position.getCode().toStdString());
    appendText(item, "Price", fixed(position.getPrice()));
    appendText(item, "Quantity", fixed(position.getBquant(), 3));
    appendText(item, "Summ", fixed(position.getSumn()));
    appendText(item, "Discount", "0.00");
    appendText(item, "SummDiscounted", fixed(position.getSumb()));
    appendText(item, "Mcp", "0.00");
}

void appendPayload(xml_node payload, const AbstractDocument &document)
{
    const std::string sum = fixed(document.getSumBeforeDiscounts());
    const std::string sumAfter = fixed(document.getSumAfterDiscounts());
    payload.append_attribute("ChequeType") = "Soft";
    const QString card = document.getCardRecord(ECardMode::OnlineLoyalty)->getNumber().toString();
    appendText(payload.append_child("Card"), "CardNumber", card.toStdString());
    appendText(payload, "OperationType", "Sale");
    appendText(payload, "Number", document.getNumber().toStdString());
    appendText(payload, "Summ", sum);
    appendText(payload, "Discount", "0.00");
    appendText(payload, "SummDiscounted", sumAfter);
    appendText(payload, "PaidByBonus", sumAfter);
    for (const auto &position : document.getGoods())
        appendItem(payload, *position);
    appendText(payload, "DateTime", "2024-03-05T17:04:09");
    for (const char *name : {"POS", "Organization", "BusinessUnit"})
        appendText(payload, name, "");
}

struct ByteWriter : pugi::xml_writer
{
    void write(const void *data, std::size_t size) override
    {
        bytes.append(static_cast<const char *>(data), static_cast<qsizetype>(size));
    }
    QByteArray bytes;
};

} // namespace

QMap<QString, QVariant> readByParser(const QByteArray &answer)
{
    pugi::xml_document document;
    if (!document.load_buffer(answer.constData(), static_cast<std::size_t>(answer.size())))
        throw std::runtime_error("the answer is no XML");
    const xml_node cheque
        = document.document_element().first_child().first_child().first_child().child(
            "ChequeResponse");
    Values result;
    for (const Name &name : texts)
        result.insert(name.key, textOf(cheque.child_value(name.element)));
    insertNumbers(cheque, numbers, result);
    insertCoupons(textOf(cheque.child_value("ChequeMessage")), instantCoupons(cheque), result);
    result.insert(korvel::result::positions, positionsOf(cheque));
    result.insert(korvel::result::applicableCoupons, applicableCoupons(cheque));
    return result;
}

QByteArray composeByParser(const AbstractDocument &document)
{
    pugi::xml_document request;
    xml_node declaration = request.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "utf-8";
    xml_node envelope = request.append_child("soap:Envelope");
    envelope.append_attribute("xmlns:soap") = "http://schemas.xmlsoap.org/soap/envelope/";
    xml_node process = envelope.append_child("soap:Body").append_child("ProcessRequest");
    process.append_attribute("xmlns") = "http://schemas.korvel.example/loyalty/processing";
    appendText(process, "orgName", "");
    appendPayload(process.append_child("request").append_child("ChequeRequest"), document);
    ByteWriter writer;
    request.save(writer, " ");
    return writer.bytes;
}

} // namespace peers

#include "host/storage/documentjson.h"

#include "host/storage/cardjson.h"
#include "host/storage/effectsjson.h"
#include "host/storage/jsonfield.h"
#include "host/storage/positionjson.h"
#include "host/storage/storageerror.h"
#include "host/storage/variantjson.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace documentjson {

namespace {

/// Counts up when files of the format before can no longer be read as they are.
constexpr int format = 1;

const QList<QPair<EDocumentState, QString>> &states()
{
    static const QList<QPair<EDocumentState, QString>> names{
        {EDocumentState::Open, u"open"_s},
        {EDocumentState::Closed, u"closed"_s},
        {EDocumentState::Cancelled, u"cancelled"_s},
    };
    return names;
}

QString stateName(EDocumentState state)
{
    for (const auto &[value, name] : states())
        if (value == state)
            return name;
    return {};
}

EDocumentState readState(const JsonField &field)
{
    for (const auto &[value, name] : states())
        if (name == field.text())
            return value;
    field.fail({u"jsonDocumentState"_s, u"open, closed или cancelled"_s});
}

EDocumentType readType(const JsonField &field)
{
    const auto type = static_cast<EDocumentType>(field.integer());
    switch (type) {
    case EDocumentType::Sale:
    case EDocumentType::Correction:
    case EDocumentType::ReturnWithoutSale:
    case EDocumentType::ReturnOfSale:
        return type;
    }
    field.fail({u"jsonDocumentType"_s, u"код вида документа"_s});
}

/// No cheque has so many positions; that far numbers can be given without an end.
constexpr int greatestNextPosnum = 1'000'000'000;

int readNextPosnum(const JsonField &field)
{
    const int posnum = field.integer();
    if (posnum < 1 || posnum > greatestNextPosnum)
        field.fail({u"jsonNextPosition"_s, u"номер следующей позиции от 1"_s});
    return posnum;
}

void readHead(const JsonField &field, AbstractDocument &document)
{
    document.setState(readState(field.at(u"state"_s)));
    document.setPlace(field.at(u"shop"_s).text(), field.at(u"till"_s).text());
    document.setCorrelationId(field.at(u"correlationId"_s).text());
    document.setOpened(field.at(u"opened"_s).time());
    document.setClosed(field.at(u"closed"_s).time());
    document.setReferencedNumber(field.at(u"refersTo"_s).text());
    document.setNextPosnum(readNextPosnum(field.at(u"nextPosnum"_s)));
    document.setChequeText(field.at(u"chequeText"_s).text());
    if (const auto begun = field.find(u"registrationBegun"_s))
        document.setRegistrationBegun(begun->flag());
    if (const auto unknown = field.find(u"bookingUnknown"_s))
        document.setBookingUnknown(unknown->flag());
}

void writePositions(JsonWriter &json, const AbstractDocument &document)
{
    json.beginArray();
    const auto positions = document.getGoods();
    for (const auto &position : positions)
        positionjson::write(json, *position);
    json.endArray();
}

void writeCards(JsonWriter &json, const AbstractDocument &document)
{
    json.beginArray();
    const auto cards = document.getCardRecords();
    for (const auto &card : cards)
        cardjson::write(json, *card);
    json.endArray();
}

void readCards(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &item : field.items()) {
        const auto card = cardjson::read(item);
        const int code = card->getCodeInternal();
        document.addCardRecord(card);
        card->setCodeInternal(code);
    }
}

void writeCoupons(JsonWriter &json, const AbstractDocument &document)
{
    json.beginArray();
    const auto coupons = document.getCoupons();
    for (const auto &coupon : coupons) {
        json.beginObject();
        json.member("displayedNumber"_L1, coupon->getDisplayedNumber());
        json.member("number"_L1, coupon->getNumber());
        json.endObject();
    }
    json.endArray();
}

void readCoupons(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &item : field.items()) {
        const auto coupon = QSharedPointer<Coupon>::create(item.at(u"number"_s).text());
        coupon->setDisplayedNumber(item.at(u"displayedNumber"_s).text());
        document.addCoupon(coupon);
    }
}

// The code that a customer has told the cashier. It serves the registration; a closed document is
// kept for years, and nothing asks it for the code.
bool isCustomersCode(const QString &name)
{
    return name.compare(u"verificationCode"_s, Qt::CaseInsensitive) == 0;
}

QVariant withoutCustomersCode(const QVariant &value)
{
    if (value.typeId() != QMetaType::QVariantMap)
        return value;
    QVariantMap kept;
    const QVariantMap all = value.toMap();
    for (auto entry = all.cbegin(); entry != all.cend(); ++entry)
        if (!isCustomersCode(entry.key()))
            kept.insert(entry.key(), withoutCustomersCode(entry.value()));
    return kept;
}

QVariantMap keptOf(const QVariantMap &values, EDocumentState state)
{
    return state == EDocumentState::Closed ? withoutCustomersCode(values).toMap() : values;
}

void writePluginData(JsonWriter &json, const AbstractDocument &document)
{
    json.beginObject();
    const auto stored = document.getStoredValues();
    for (auto group = stored.cbegin(); group != stored.cend(); ++group) {
        json.key(group.key());
        json.beginObject();
        const QVariantMap kept = keptOf(*group, document.getState());
        for (auto value = kept.cbegin(); value != kept.cend(); ++value) {
            json.key(value.key());
            variantjson::write(json, value.value());
        }
        json.endObject();
    }
    json.endObject();
}

void readPluginData(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &group : field.items())
        for (const JsonField &value : group.items())
            document.setStoredValue(group.name(), value.name(), value.variant());
}

void writeModifiers(JsonWriter &json, AbstractDocument &document)
{
    json.beginArray();
    const auto modifiers = document.getModifiers().all();
    for (auto modifier = modifiers.cbegin(); modifier != modifiers.cend(); ++modifier) {
        json.beginObject();
        json.member("type"_L1, static_cast<int>(modifier.key()));
        json.key("value"_L1);
        variantjson::write(json, modifier.value());
        json.endObject();
    }
    json.endArray();
}

void readModifiers(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &item : field.items())
        document.getModifiers().set(static_cast<modifiers::Type>(item.at(u"type"_s).integer()),
            item.at(u"value"_s).variant());
}

void writePayments(JsonWriter &json, const AbstractDocument &document)
{
    json.beginArray();
    const auto payments = document.getPayments();
    for (const Payment &payment : payments) {
        json.beginObject();
        json.member("amount"_L1, payment.amount);
        json.member("kind"_L1, payment.kind);
        json.endObject();
    }
    json.endArray();
}

QList<Payment> readPayments(const JsonField &field)
{
    QList<Payment> payments;
    for (const JsonField &item : field.items())
        payments.append({item.at(u"kind"_s).text(), item.at(u"amount"_s).number()});
    return payments;
}

// Members stand in the order of their names.
void writeFirstMembers(JsonWriter &json, AbstractDocument &document)
{
    if (document.isBookingUnknown())
        json.member("bookingUnknown"_L1, true);
    json.key("cards"_L1);
    writeCards(json, document);
    json.member("chequeText"_L1, document.getChequeText());
    json.member("closed"_L1, document.getClosed());
    json.member("correlationId"_L1, document.getCorrelationId());
    json.key("coupons"_L1);
    writeCoupons(json, document);
    json.key("effects"_L1);
    effectsjson::write(json, document.getEffects(), document.getCardRecords());
    json.member("format"_L1, format);
    json.key("modifiers"_L1);
    writeModifiers(json, document);
    json.member("nextPosnum"_L1, document.getNextPosnum());
    json.member("number"_L1, document.getNumber());
    json.member("opened"_L1, document.getOpened());
}

void writeLastMembers(JsonWriter &json, const AbstractDocument &document)
{
    json.member("refersTo"_L1, document.getReferencedNumber());
    if (document.isRegistrationBegun())
        json.member("registrationBegun"_L1, true);
    json.member("shop"_L1, document.getShop());
    json.member("state"_L1, stateName(document.getState()));
    json.member("till"_L1, document.getTill());
    json.member("type"_L1, document.getTypeCode());
}

QSharedPointer<AbstractDocument> readDocument(const JsonField &field)
{
    if (field.at(u"format"_s).integer() != format)
        field.at(u"format"_s)
            .fail(tr::Tr(u"jsonFormat"_s, u"%1: только это читает данная версия"_s)
                      .arg(QString::number(format)));
    auto document = QSharedPointer<AbstractDocument>::create(
        readType(field.at(u"type"_s)), field.at(u"number"_s).text());
    readHead(field, *document);
    for (const JsonField &position : field.at(u"positions"_s).items())
        document->addPosition(positionjson::read(position));
    readCards(field.at(u"cards"_s), *document);
    readCoupons(field.at(u"coupons"_s), *document);
    readPluginData(field.at(u"pluginData"_s), *document);
    readModifiers(field.at(u"modifiers"_s), *document);
    document->setPayments(readPayments(field.at(u"payments"_s)));
    document->setEffects(effectsjson::read(field.at(u"effects"_s), document->getCardRecords()));
    return document;
}

} // namespace

QByteArray write(AbstractDocument &document)
{
    JsonWriter json;
    json.beginObject();
    writeFirstMembers(json, document);
    json.key("payments"_L1);
    writePayments(json, document);
    json.key("pluginData"_L1);
    writePluginData(json, document);
    json.key("positions"_L1);
    writePositions(json, document);
    writeLastMembers(json, document);
    json.endObject();
    return json.written();
}

QSharedPointer<AbstractDocument> read(const QByteArray &contents, const QString &fileName)
{
    QJsonParseError syntax;
    const auto json = QJsonDocument::fromJson(contents, &syntax);
    const tr::Tr remedy{
        u"documentRestoreRemedy"_s, u"восстановите файл из копии или уберите его"_s};
    if (syntax.error != QJsonParseError::NoError)
        throw StorageError(tr::Tr(u"documentDamaged"_s, u"%1: повреждён в байте %2: %3; %4"_s)
                               .arg(fileName)
                               .arg(QString::number(syntax.offset))
                               .arg(syntax.errorString())
                               .arg(remedy));
    try {
        return readDocument(JsonField(json.object()));
    } catch (const StorageError &error) {
        throw StorageError(
            tr::Tr(tr::undefined, u"%1: %2; %3"_s).arg(fileName).arg(error.tr()).arg(remedy));
    }
}

} // namespace documentjson

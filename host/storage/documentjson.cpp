#include "host/storage/documentjson.h"

#include "host/storage/cardjson.h"
#include "host/storage/effectsjson.h"
#include "host/storage/jsonfield.h"
#include "host/storage/positionjson.h"
#include "host/storage/storageerror.h"
#include "host/storage/variantjson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;
using variantjson::fromVariant;

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

QJsonObject writeHead(const AbstractDocument &document)
{
    QJsonObject head{
        {u"format"_s, format},
        {u"type"_s, document.getTypeCode()},
        {u"number"_s, document.getNumber()},
        {u"state"_s, stateName(document.getState())},
        {u"shop"_s, document.getShop()},
        {u"till"_s, document.getTill()},
        {u"correlationId"_s, document.getCorrelationId()},
        {u"opened"_s, variantjson::fromTime(document.getOpened())},
        {u"closed"_s, variantjson::fromTime(document.getClosed())},
        {u"refersTo"_s, document.getReferencedNumber()},
        {u"nextPosnum"_s, document.getNextPosnum()},
        {u"chequeText"_s, document.getChequeText()},
    };
    if (document.isRegistrationBegun())
        head.insert(u"registrationBegun"_s, true);
    return head;
}

void readHead(const JsonField &field, AbstractDocument &document)
{
    document.setState(readState(field.at(u"state"_s)));
    document.setPlace(field.at(u"shop"_s).text(), field.at(u"till"_s).text());
    document.setCorrelationId(field.at(u"correlationId"_s).text());
    document.setOpened(field.at(u"opened"_s).time());
    document.setClosed(field.at(u"closed"_s).time());
    document.setReferencedNumber(field.at(u"refersTo"_s).text());
    document.setNextPosnum(field.at(u"nextPosnum"_s).integer());
    document.setChequeText(field.at(u"chequeText"_s).text());
    if (const auto begun = field.find(u"registrationBegun"_s))
        document.setRegistrationBegun(begun->flag());
}

QJsonArray writePositions(const AbstractDocument &document)
{
    QJsonArray items;
    const auto positions = document.getGoods();
    for (const auto &position : positions)
        items.append(positionjson::write(*position));
    return items;
}

QJsonArray writeCards(const AbstractDocument &document)
{
    QJsonArray items;
    const auto cards = document.getCardRecords();
    for (const auto &card : cards)
        items.append(cardjson::write(*card));
    return items;
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

QJsonArray writeCoupons(const AbstractDocument &document)
{
    QJsonArray items;
    const auto coupons = document.getCoupons();
    for (const auto &coupon : coupons)
        items.append(QJsonObject{{u"number"_s, coupon->getNumber()},
            {u"displayedNumber"_s, coupon->getDisplayedNumber()}});
    return items;
}

void readCoupons(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &item : field.items()) {
        const auto coupon = QSharedPointer<Coupon>::create(item.at(u"number"_s).text());
        coupon->setDisplayedNumber(item.at(u"displayedNumber"_s).text());
        document.addCoupon(coupon);
    }
}

QJsonObject writePluginData(const AbstractDocument &document)
{
    QJsonObject groups;
    const auto stored = document.getStoredValues();
    for (auto group = stored.cbegin(); group != stored.cend(); ++group) {
        QJsonObject values;
        for (auto value = group->cbegin(); value != group->cend(); ++value)
            values.insert(value.key(), fromVariant(value.value()));
        groups.insert(group.key(), values);
    }
    return groups;
}

void readPluginData(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &group : field.items())
        for (const JsonField &value : group.items())
            document.setStoredValue(group.name(), value.name(), value.variant());
}

QJsonArray writeModifiers(AbstractDocument &document)
{
    QJsonArray items;
    const auto modifiers = document.getModifiers().all();
    for (auto modifier = modifiers.cbegin(); modifier != modifiers.cend(); ++modifier)
        items.append(QJsonObject{{u"type"_s, static_cast<int>(modifier.key())},
            {u"value"_s, fromVariant(modifier.value())}});
    return items;
}

void readModifiers(const JsonField &field, AbstractDocument &document)
{
    for (const JsonField &item : field.items())
        document.getModifiers().set(static_cast<modifiers::Type>(item.at(u"type"_s).integer()),
            item.at(u"value"_s).variant());
}

QJsonArray writePayments(const AbstractDocument &document)
{
    QJsonArray items;
    const auto payments = document.getPayments();
    for (const Payment &payment : payments)
        items.append(QJsonObject{
            {u"kind"_s, payment.kind}, {u"amount"_s, variantjson::fromDouble(payment.amount)}});
    return items;
}

QList<Payment> readPayments(const JsonField &field)
{
    QList<Payment> payments;
    for (const JsonField &item : field.items())
        payments.append({item.at(u"kind"_s).text(), item.at(u"amount"_s).number()});
    return payments;
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
    QJsonObject members = writeHead(document);
    members.insert(u"positions"_s, writePositions(document));
    members.insert(u"cards"_s, writeCards(document));
    members.insert(u"coupons"_s, writeCoupons(document));
    members.insert(u"pluginData"_s, writePluginData(document));
    members.insert(u"modifiers"_s, writeModifiers(document));
    members.insert(u"payments"_s, writePayments(document));
    members.insert(
        u"effects"_s, effectsjson::write(document.getEffects(), document.getCardRecords()));
    return QJsonDocument(members).toJson(QJsonDocument::Indented);
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

#include "host/storage/cardjson.h"

#include "host/storage/variantjson.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using variantjson::fromVariant;

namespace cardjson {

namespace {

QJsonValue writeGroup(const QSharedPointer<CardGroup> &group)
{
    if (!group)
        return {};
    return QJsonObject{
        {u"name"_s, group->getName()}, {u"cardMode"_s, static_cast<int>(group->getCardMode())}};
}

QSharedPointer<CardGroup> readGroup(const JsonField &field)
{
    if (field.isNull())
        return {};
    auto group = QSharedPointer<CardGroup>::create();
    group->setName(field.at(u"name"_s).text());
    group->setCardMode(static_cast<ECardMode>(field.at(u"cardMode"_s).integer()));
    return group;
}

QJsonArray writeOptions(const Client &client)
{
    QList<int> codes;
    for (const ClientOptions option : client.getOptions())
        codes.append(static_cast<int>(option));
    std::sort(codes.begin(), codes.end());
    QJsonArray options;
    for (const int code : codes)
        options.append(code);
    return options;
}

QJsonValue writeClient(const QSharedPointer<Client> &client)
{
    if (!client)
        return {};
    return QJsonObject{{u"name"_s, client->getName()}, {u"email"_s, client->getEmail()},
        {u"options"_s, writeOptions(*client)}};
}

QSharedPointer<Client> readClient(const JsonField &field)
{
    if (field.isNull())
        return {};
    auto client = QSharedPointer<Client>::create();
    client->setName(field.at(u"name"_s).text());
    client->setEmail(field.at(u"email"_s).text());
    for (const JsonField &option : field.at(u"options"_s).items())
        client->setOption(static_cast<ClientOptions>(option.integer()));
    return client;
}

} // namespace

QJsonObject write(const DocumentCardRecord &record)
{
    const auto card = record.getCard();
    return {
        {u"number"_s, card->getNumber()},
        {u"group"_s, writeGroup(card->getCardGroup())},
        {u"client"_s, writeClient(card->getClient())},
        {u"codeInternal"_s, record.getCodeInternal()},
        {u"bonusBalance"_s, fromVariant(record.getBonusBalance())},
        {u"pointsForSpend"_s, variantjson::fromDouble(record.getPointsForSpend())},
        {u"pointsForEarn"_s, fromVariant(record.getPointsForEarn())},
        {u"operationId"_s, record.getOperationId()},
        {u"operationInfo"_s, fromVariant(record.getOperationInfo())},
    };
}

QSharedPointer<DocumentCardRecord> read(const JsonField &field)
{
    const auto card = QSharedPointer<Card>::create();
    card->setNumber(field.at(u"number"_s).text());
    card->setCardGroup(readGroup(field.at(u"group"_s)));
    card->setClient(readClient(field.at(u"client"_s)));
    auto record = QSharedPointer<DocumentCardRecord>::create(card);
    record->setCodeInternal(field.at(u"codeInternal"_s).integer());
    record->setBonusBalance(field.at(u"bonusBalance"_s).variant());
    record->setPointsForSpend(field.at(u"pointsForSpend"_s).number());
    record->setPointsForEarn(field.at(u"pointsForEarn"_s).variant());
    record->setOperationId(field.at(u"operationId"_s).text());
    record->setOperationInfo(field.at(u"operationInfo"_s).variant());
    return record;
}

} // namespace cardjson

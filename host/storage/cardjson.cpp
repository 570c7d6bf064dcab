#include "host/storage/cardjson.h"

#include "host/storage/variantjson.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace cardjson {

namespace {

void writeGroup(JsonWriter &json, const QSharedPointer<CardGroup> &group)
{
    if (!group)
        return json.null();
    json.beginObject();
    json.member("cardMode"_L1, static_cast<int>(group->getCardMode()));
    json.member("name"_L1, group->getName());
    json.endObject();
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

void writeOptions(JsonWriter &json, const Client &client)
{
    QList<int> codes;
    for (const ClientOptions option : client.getOptions())
        codes.append(static_cast<int>(option));
    std::sort(codes.begin(), codes.end());
    json.beginArray();
    for (const int code : codes)
        json.value(code);
    json.endArray();
}

void writeClient(JsonWriter &json, const QSharedPointer<Client> &client)
{
    if (!client)
        return json.null();
    json.beginObject();
    json.member("email"_L1, client->getEmail());
    json.member("name"_L1, client->getName());
    json.key("options"_L1);
    writeOptions(json, *client);
    json.endObject();
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

void write(JsonWriter &json, const DocumentCardRecord &record)
{
    const auto card = record.getCard();
    json.beginObject();
    json.key("bonusBalance"_L1);
    variantjson::write(json, record.getBonusBalance());
    json.key("client"_L1);
    writeClient(json, card->getClient());
    json.member("codeInternal"_L1, record.getCodeInternal());
    json.key("group"_L1);
    writeGroup(json, card->getCardGroup());
    json.member("number"_L1, card->getNumber());
    json.member("operationId"_L1, record.getOperationId());
    json.key("operationInfo"_L1);
    variantjson::write(json, record.getOperationInfo());
    json.key("pointsForEarn"_L1);
    variantjson::write(json, record.getPointsForEarn());
    json.member("pointsForSpend"_L1, record.getPointsForSpend());
    json.endObject();
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

#include "emulator/data/servicedatareader.h"

#include "emulator/data/parsejson.h"
#include "emulator/data/readrules.h"
#include "emulator/embedded.h"

#include <QFile>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int activeStatus = 2;

std::vector<int> readServedStatuses(const JsonValue &root)
{
    const auto list = root.find("servedStatuses");
    if (!list)
        return {activeStatus};
    std::vector<int> statuses;
    list->forEachItem([&](const JsonValue &status) { statuses.push_back(status.integer()); });
    return statuses;
}

void readCardsInto(ServiceData &data, const JsonValue &cards)
{
    QSet<QString> numbers;
    cards.forEachItem([&](const JsonValue &value) {
        data.cards.push_back(readCard(value));
        const QString number = data.cards.back().number;
        if (numbers.contains(number))
            value.member("number").expected("a number that no card above has");
        numbers.insert(number);
    });
}

void readStickerOffersInto(ServiceData &data, const JsonValue &offers)
{
    QSet<QString> articles;
    offers.forEachItem([&](const JsonValue &value) {
        data.stickerOffers.push_back(readStickerOffer(value));
        const QString article = data.stickerOffers.back().article;
        if (articles.contains(article))
            value.member("article").expected("an article that no offer above has");
        articles.insert(article);
    });
}

void readSectionsInto(ServiceData &data, const JsonValue &root)
{
    if (const auto section = root.find("cards"))
        readCardsInto(data, *section);
    if (const auto section = root.find("technicalCards"))
        data.technicalCards = readTechnicalCards(*section);
    if (const auto section = root.find("discounts"))
        readDiscountsInto(data, *section);
    if (const auto section = root.find("earning"))
        data.earning = readEarning(*section);
    if (const auto section = root.find("spending"))
        data.spending = readSpending(*section);
    if (const auto section = root.find("stickerOffers"))
        readStickerOffersInto(data, *section);
    if (const auto section = root.find("coupons"))
        section->forEachItem(
            [&](const JsonValue &value) { data.coupons.push_back(readCoupon(value)); });
    if (const auto section = root.find("instantCoupons"))
        section->forEachItem([&](const JsonValue &value) {
            data.instantCoupons.push_back(readInstantCoupon(value));
        });
    if (const auto section = root.find("messages"))
        readMessagesInto(data, *section);
}

} // namespace

ServiceData readServiceData(const QByteArray &json)
{
    const nlohmann::json document = parseJson(json);
    const JsonValue root(document);
    root.allowOnly({"servedStatuses", "cards", "technicalCards", "discounts", "earning", "spending",
        "stickerOffers", "coupons", "instantCoupons", "messages"});
    ServiceData data;
    data.servedStatuses = readServedStatuses(root);
    readSectionsInto(data, root);
    return data;
}

ServiceData readServiceDataFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw DataError(
            path.toStdString() + ": cannot be read: " + file.errorString().toStdString());
    try {
        return readServiceData(file.readAll());
    } catch (const DataError &error) {
        throw DataError(path.toStdString() + ": " + error.what());
    }
}

ServiceData sampleServiceData()
{
    return readServiceData(embedded::sampleData());
}

} // namespace emulator

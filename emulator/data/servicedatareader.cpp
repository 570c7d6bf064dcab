#include "emulator/data/servicedatareader.h"

#include "emulator/data/readrules.h"
#include "emulator/embedded.h"

#include <QFile>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int activeStatus = 2;

/// "line 3, column 7" of a byte, both counted from 1.
std::string placeOf(const QByteArray &json, std::size_t byte)
{
    const QByteArray before = json.left(static_cast<qsizetype>(byte > 0 ? byte - 1 : 0));
    const auto line = before.count('\n') + 1;
    const auto column = QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).size() + 1;
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

/// The part of the library's message that says what is wrong, without its own error number.
std::string syntaxMessage(const std::string &message)
{
    const std::string marker = "syntax error";
    const auto found = message.find(marker);
    return found == std::string::npos ? message : message.substr(found);
}

/// The number that the library could not hold stands between quotation marks in its message, and is
/// the only thing that the message says about the place.
std::size_t byteOfNumber(const QByteArray &json, const QByteArray &message)
{
    const qsizetype start = message.indexOf('\'') + 1;
    const QByteArray number = message.mid(start, message.lastIndexOf('\'') - start);
    return static_cast<std::size_t>(json.indexOf(number) + 1);
}

nlohmann::json parseJson(const QByteArray &json)
{
    constexpr bool allowExceptions = true;
    constexpr bool ignoreComments = true;
    try {
        return nlohmann::json::parse(
            json.begin(), json.end(), nullptr, allowExceptions, ignoreComments);
    } catch (const nlohmann::json::parse_error &error) {
        throw DataError(placeOf(json, error.byte) + ": " + syntaxMessage(error.what()));
    } catch (const nlohmann::json::out_of_range &error) {
        throw DataError(
            placeOf(json, byteOfNumber(json, error.what())) + ": the number is too large");
    }
}

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

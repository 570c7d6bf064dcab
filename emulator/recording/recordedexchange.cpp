#include "emulator/recording/recordedexchange.h"

#include "emulator/data/jsonvalue.h"
#include "emulator/data/parsejson.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

using Json = nlohmann::ordered_json;

constexpr int indentation = 2;
constexpr int numberWidth = 6;
constexpr int leastStatus = 200;
constexpr int greatestStatus = 999;

Json textOrNull(const QString &text)
{
    return text.isEmpty() ? Json() : Json(text.toStdString());
}

Json headersJson(const std::map<QByteArray, QByteArray> &headers)
{
    Json json = Json::object();
    for (const auto &[name, value] : headers)
        json[name.toStdString()] = value.toStdString();
    return json;
}

std::optional<int> readStatus(const JsonValue &root)
{
    const JsonValue value = root.member("status");
    if (value.isNull())
        return {};
    const int status = value.integer();
    if (status < leastStatus || status > greatestStatus)
        value.expected("null or an HTTP status from 200 up");
    return status;
}

} // namespace

QString RecordedExchange::name() const
{
    return QString::number(number).rightJustified(numberWidth, u'0') + u'-'
        + (operation.isEmpty() ? u"unreadable"_s : operation);
}

QString RecordedExchange::jsonFile() const
{
    return name() + u".json"_s;
}

QString RecordedExchange::requestFile() const
{
    return name() + u"-request.xml"_s;
}

QString RecordedExchange::answerFile() const
{
    return name() + u"-answer.xml"_s;
}

QByteArray toJson(const RecordedExchange &exchange)
{
    Json json;
    json["number"] = exchange.number;
    json["time"] = exchange.time.toString(Qt::ISODateWithMs).toStdString();
    json["operation"] = textOrNull(exchange.operation);
    json["card"] = textOrNull(exchange.card);
    json["status"] = exchange.status ? Json(*exchange.status) : Json();
    json["failure"] = textOrNull(exchange.failure);
    json["milliseconds"] = exchange.timeTaken.count();
    json["contentType"] = exchange.contentType.toStdString();
    json["requestHeaders"] = headersJson(exchange.requestHeaders);
    json["cardsMasked"] = exchange.hasMaskedCards;
    return QByteArray::fromStdString(
               json.dump(indentation, ' ', false, Json::error_handler_t::replace))
        + '\n';
}

RecordedExchange exchangeFromJson(const QByteArray &json)
{
    const nlohmann::json document = parseJson(json);
    const JsonValue root(document);
    RecordedExchange exchange;
    exchange.status = readStatus(root);
    exchange.timeTaken = std::chrono::milliseconds(root.member("milliseconds").integerOfAtLeast(0));
    // A text without control characters, so that it cannot become a header of its own.
    exchange.contentType = root.member("contentType").text().simplified().toUtf8();
    exchange.hasMaskedCards = root.member("cardsMasked").boolean();
    return exchange;
}

} // namespace emulator

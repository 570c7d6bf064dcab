#include "emulator/data/parsejson.h"

#include "emulator/data/jsonvalue.h"

namespace emulator {

namespace {

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

/// More than any data has; a value is copied by recursion.
constexpr int mostLevels = 100;

bool boundLevels(int levelsAround, nlohmann::json::parse_event_t event, const nlohmann::json &)
{
    const bool isBeginning = event == nlohmann::json::parse_event_t::array_start
        || event == nlohmann::json::parse_event_t::object_start;
    if (isBeginning && levelsAround >= mostLevels)
        throw DataError("nested deeper than " + std::to_string(mostLevels) + " levels");
    return true;
}

} // namespace

nlohmann::json parseJson(const QByteArray &json)
{
    constexpr bool allowExceptions = true;
    constexpr bool ignoreComments = true;
    try {
        return nlohmann::json::parse(
            json.begin(), json.end(), boundLevels, allowExceptions, ignoreComments);
    } catch (const nlohmann::json::parse_error &error) {
        throw DataError(placeOf(json, error.byte) + ": " + syntaxMessage(error.what()));
    } catch (const nlohmann::json::out_of_range &error) {
        throw DataError(
            placeOf(json, byteOfNumber(json, error.what())) + ": the number is too large");
    }
}

} // namespace emulator

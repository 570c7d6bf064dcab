#include "host/storage/commentedjson.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <nlohmann/json.hpp>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace commentedjson {

namespace {

using Json = nlohmann::json;

// Of the byte that the parser stopped at, which it counts from 1.
QString placeOf(const QByteArray &contents, std::size_t byte)
{
    const QByteArray before = contents.left(static_cast<qsizetype>(byte) - 1);
    const qsizetype lineStart = before.lastIndexOf('\n') + 1;
    return u"%1:%2"_s.arg(QString::number(before.count('\n') + 1),
        QString::number(QString::fromUtf8(before.mid(lineStart)).size() + 1));
}

// What the parser says behind its own name for the error, and behind its own place.
QString reasonOf(const Json::exception &error)
{
    const QString text = QString::fromUtf8(error.what()).section(u"] "_s, 1);
    return text.contains(u": "_s) ? text.section(u": "_s, 1) : text;
}

bool boundLevels(int levelsAround, Json::parse_event_t event, const Json &)
{
    const bool isBeginning
        = event == Json::parse_event_t::array_start || event == Json::parse_event_t::object_start;
    if (isBeginning && levelsAround >= mostLevels)
        throw Error({},
            tr::Tr(u"jsonTooDeep"_s, u"вложено глубже %1 уровней"_s)
                .arg(QString::number(mostLevels)));
    return true;
}

Json parsed(const QByteArray &contents)
{
    constexpr bool throwsErrors = true;
    constexpr bool ignoresComments = true;
    try {
        return Json::parse(
            contents.begin(), contents.end(), boundLevels, throwsErrors, ignoresComments);
    } catch (const Json::parse_error &error) {
        throw Error(placeOf(contents, error.byte), {tr::undefined, reasonOf(error)});
    } catch (const Json::exception &error) {
        throw Error({}, {tr::undefined, reasonOf(error)});
    }
}

} // namespace

Error::Error(QString place, const tr::Tr &reason)
    : SpokenError(reason)
    , m_place(std::move(place))
{ }

Error::~Error() = default;

QString Error::placeIn(const QString &fileName) const
{
    return m_place.isEmpty() ? fileName : fileName + u':' + m_place;
}

QJsonValue parse(const QByteArray &contents)
{
    // Within an array, since a document of the other parser holds no plain value.
    const std::string array = Json::array({parsed(contents)}).dump();
    return QJsonDocument::fromJson(QByteArray::fromStdString(array))[0];
}

} // namespace commentedjson

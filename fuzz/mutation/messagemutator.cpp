#include "fuzz/mutation/messagemutator.h"

#include "fuzz/mutation/jsonmutator.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace fuzz {

namespace {

using Json = nlohmann::ordered_json;

/// As whoever writes the file makes it: of the members in the order of their names.
QString checksumOf(const QJsonObject &message)
{
    const QByteArray text = QJsonDocument(message).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

} // namespace

std::size_t mutateMessage(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    Json line = Json::parse(data, data + size, nullptr, false);
    if (!line.is_object() || !line.contains("message"))
        return 0;
    mutateInside(line["message"], seed);
    const std::string text = line["message"].dump(-1, ' ', false, Json::error_handler_t::replace);
    const QJsonObject message = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
    const QJsonObject whole{{u"checksum"_s, checksumOf(message)}, {u"message"_s, message}};
    const QByteArray bytes = QJsonDocument(whole).toJson(QJsonDocument::Compact);
    if (static_cast<std::size_t>(bytes.size()) > greatest)
        return 0;
    std::memcpy(data, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return static_cast<std::size_t>(bytes.size());
}

} // namespace fuzz

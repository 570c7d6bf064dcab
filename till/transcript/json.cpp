#include "till/transcript/json.h"

#include "host/framework/tr.h"

#include <QDate>
#include <QDateTime>

#include <cmath>

namespace till {

namespace {

Json numberToJson(double number)
{
    return std::isfinite(number) ? Json(number) : Json(nullptr);
}

Json mapToJson(const QMap<QString, QVariant> &map)
{
    Json object = Json::object();
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        object[toJson(entry.key())] = toJson(entry.value());
    return object;
}

Json listToJson(const QVariantList &list)
{
    Json array = Json::array();
    for (const QVariant &item : list)
        array.push_back(toJson(item));
    return array;
}

Json dateToJson(const QDate &date)
{
    return date.isValid() ? Json(toJson(date.toString(Qt::ISODate))) : Json(nullptr);
}

Json objectToJson(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<tr::Tr>())
        return toJson(value.value<tr::Tr>().ru());
    return toJson(value.toString());
}

} // namespace

std::string toJson(const QString &text)
{
    return text.toStdString();
}

Json toJson(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::Nullptr:
        return nullptr;
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return value.toULongLong();
    case QMetaType::Double:
    case QMetaType::Float:
        return numberToJson(value.toDouble());
    case QMetaType::QDate:
        return dateToJson(value.toDate());
    case QMetaType::QDateTime:
        return dateTimeToJson(value.toDateTime());
    case QMetaType::QVariantMap:
        return mapToJson(value.toMap());
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return listToJson(value.toList());
    default:
        return objectToJson(value);
    }
}

Json amountToJson(const QVariant &value)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    return ok ? numberToJson(number) : Json(nullptr);
}

Json dateTimeToJson(const QDateTime &dateTime)
{
    return dateTime.isValid() ? Json(toJson(dateTime.toString(Qt::ISODate))) : Json(nullptr);
}

} // namespace till

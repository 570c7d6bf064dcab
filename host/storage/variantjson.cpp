#include "host/storage/variantjson.h"

#include "host/documents/modifiers.h"
#include "host/storage/storageerror.h"

#include <QDate>
#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <bit>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace variantjson {

namespace {

constexpr int hexBase = 16;
const QString hexMark = u"0x"_s;

/// A kind of variants: its type, the member that names it, and both ways.
struct Kind
{
    int type;
    QString name;
    QJsonValue (*write)(const QVariant &);
    QVariant (*read)(const JsonField &);
};

QJsonValue writeTexts(const QVariant &value)
{
    return QJsonArray::fromStringList(value.toStringList());
}

QVariant readTexts(const JsonField &field)
{
    QStringList texts;
    for (const JsonField &item : field.items())
        texts.append(item.text());
    return texts;
}

QJsonValue writeMap(const QVariant &value)
{
    QJsonObject members;
    const QVariantMap map = value.toMap();
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        members.insert(entry.key(), fromVariant(entry.value()));
    return members;
}

QVariant readMap(const JsonField &field)
{
    QVariantMap map;
    for (const JsonField &member : field.items())
        map.insert(member.name(), member.variant());
    return map;
}

QJsonValue writeDate(const QVariant &value)
{
    const QDate date = value.toDate();
    return date.isValid() ? QJsonValue(date.toString(Qt::ISODate)) : QJsonValue();
}

QVariant readDate(const JsonField &field)
{
    if (field.isNull())
        return QDate();
    const QDate date = QDate::fromString(field.text(), Qt::ISODate);
    if (!date.isValid())
        field.fail({u"jsonDate"_s, u"дата или null"_s});
    return date;
}

// Programs that read JSON numbers as doubles would damage the larger ones of these.
QJsonValue writeAsText(const QVariant &value)
{
    return value.toString();
}

template <typename Integer> QVariant readFromText(const JsonField &field)
{
    QVariant number(field.text());
    if (!number.convert(QMetaType::fromType<Integer>()))
        field.fail({u"jsonIntegerText"_s, u"целое число в виде текста"_s});
    return number;
}

const QList<Kind> &kinds()
{
    static const QList<Kind> all{
        {QMetaType::QString, u"text"_s, [](const QVariant &) { return QJsonValue(); },
            [](const JsonField &) { return QVariant(QString()); }},
        {QMetaType::Int, u"int"_s, [](const QVariant &value) { return QJsonValue(value.toInt()); },
            [](const JsonField &field) { return QVariant(field.integer()); }},
        {QMetaType::UInt, u"unsigned"_s, writeAsText, readFromText<uint>},
        {QMetaType::LongLong, u"int64"_s, writeAsText, readFromText<qlonglong>},
        {QMetaType::ULongLong, u"unsigned64"_s, writeAsText, readFromText<qulonglong>},
        {QMetaType::Double, u"double"_s,
            [](const QVariant &value) { return fromDouble(value.toDouble()); },
            [](const JsonField &field) { return QVariant(field.number()); }},
        {QMetaType::QDate, u"date"_s, writeDate, readDate},
        {QMetaType::QDateTime, u"dateTime"_s,
            [](const QVariant &value) { return fromTime(value.toDateTime()); },
            [](const JsonField &field) { return QVariant(field.time()); }},
        {QMetaType::QStringList, u"texts"_s, writeTexts, readTexts},
        {QMetaType::QVariantMap, u"map"_s, writeMap, readMap},
        {qMetaTypeId<Quantity>(), u"quantity"_s,
            [](const QVariant &value) { return fromDouble(value.value<Quantity>().value()); },
            [](const JsonField &field) { return QVariant::fromValue(Quantity(field.number())); }},
    };
    return all;
}

QJsonValue writeList(const QVariant &value)
{
    QJsonArray items;
    const QVariantList list = value.toList();
    for (const QVariant &item : list)
        items.append(fromVariant(item));
    return items;
}

QVariant readList(const JsonField &field)
{
    QVariantList list;
    for (const JsonField &item : field.items())
        list.append(item.variant());
    return list;
}

} // namespace

QJsonValue fromVariant(const QVariant &value)
{
    if (!value.isValid())
        return QJsonValue();
    const int type = value.typeId();
    if (type == QMetaType::Bool)
        return value.toBool();
    if (type == QMetaType::QVariantList)
        return writeList(value);
    if (type == QMetaType::QString && !value.toString().isNull())
        return value.toString();
    const auto kind = std::find_if(
        kinds().cbegin(), kinds().cend(), [type](const Kind &other) { return other.type == type; });
    if (kind == kinds().cend())
        throw StorageError(
            tr::Tr(u"documentTypeNotKept"_s, u"значения типа %1 нельзя хранить в документе"_s)
                .arg(QString::fromLatin1(value.typeName())));
    return QJsonObject{{kind->name, kind->write(value)}};
}

QVariant toVariant(const JsonField &field)
{
    const QJsonValue value = field.value();
    if (value.isNull())
        return {};
    if (value.isBool() || value.isString())
        return value.toVariant();
    if (value.isArray())
        return readList(field);
    const QStringList names = value.toObject().keys();
    const auto kind = std::find_if(kinds().cbegin(), kinds().cend(),
        [&names](const Kind &other) { return names == QStringList{other.name}; });
    if (kind == kinds().cend())
        field.fail({u"jsonKnownKind"_s, u"значение известного вида"_s});
    return kind->read(field.at(kind->name));
}

QJsonValue fromDouble(double number)
{
    const QJsonValue plain(number);
    const auto bits = std::bit_cast<quint64>(number);
    if (std::isfinite(number) && std::bit_cast<quint64>(plain.toDouble()) == bits)
        return plain;
    return QString(hexMark + QString::number(bits, hexBase));
}

std::optional<double> toDouble(const QJsonValue &value)
{
    if (value.isDouble())
        return value.toDouble();
    bool isNumber = false;
    const quint64 bits = value.toString().mid(hexMark.size()).toULongLong(&isNumber, hexBase);
    if (!isNumber || !value.toString().startsWith(hexMark))
        return {};
    return std::bit_cast<double>(bits);
}

QJsonValue fromTime(const QDateTime &time)
{
    return time.isValid() ? QJsonValue(time.toString(Qt::ISODateWithMs)) : QJsonValue();
}

} // namespace variantjson

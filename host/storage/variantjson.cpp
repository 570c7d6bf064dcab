#include "host/storage/variantjson.h"

#include "host/documents/modifiers.h"
#include "host/storage/storageerror.h"

#include <QDate>
#include <QJsonObject>

#include <algorithm>
#include <bit>

using namespace Qt::Literals::StringLiterals;

namespace variantjson {

namespace {

constexpr int hexBase = 16;
const QString hexMark = u"0x"_s;

/// A kind of variants: its type, the member that names it, and both ways.
struct Kind
{
    int type;
    QLatin1String name;
    void (*write)(JsonWriter &, const QVariant &);
    QVariant (*read)(const JsonField &);
};

void writeTexts(JsonWriter &json, const QVariant &value)
{
    json.beginArray();
    const QStringList texts = value.toStringList();
    for (const QString &text : texts)
        json.value(text);
    json.endArray();
}

QVariant readTexts(const JsonField &field)
{
    QStringList texts;
    for (const JsonField &item : field.items())
        texts.append(item.text());
    return texts;
}

void writeMap(JsonWriter &json, const QVariant &value)
{
    json.beginObject();
    const QVariantMap map = value.toMap();
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry) {
        json.key(entry.key());
        write(json, entry.value());
    }
    json.endObject();
}

QVariant readMap(const JsonField &field)
{
    QVariantMap map;
    for (const JsonField &member : field.items())
        map.insert(member.name(), member.variant());
    return map;
}

void writeDate(JsonWriter &json, const QVariant &value)
{
    const QDate date = value.toDate();
    if (date.isValid())
        json.value(date.toString(Qt::ISODate));
    else
        json.null();
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
void writeAsText(JsonWriter &json, const QVariant &value)
{
    json.value(value.toString());
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
        {QMetaType::QString, "text"_L1, [](JsonWriter &json, const QVariant &) { json.null(); },
            [](const JsonField &) { return QVariant(QString()); }},
        {QMetaType::Int, "int"_L1,
            [](JsonWriter &json, const QVariant &value) { json.value(value.toInt()); },
            [](const JsonField &field) { return QVariant(field.integer()); }},
        {QMetaType::UInt, "unsigned"_L1, writeAsText, readFromText<uint>},
        {QMetaType::LongLong, "int64"_L1, writeAsText, readFromText<qlonglong>},
        {QMetaType::ULongLong, "unsigned64"_L1, writeAsText, readFromText<qulonglong>},
        {QMetaType::Double, "double"_L1,
            [](JsonWriter &json, const QVariant &value) { json.value(value.toDouble()); },
            [](const JsonField &field) { return QVariant(field.number()); }},
        {QMetaType::QDate, "date"_L1, writeDate, readDate},
        {QMetaType::QDateTime, "dateTime"_L1,
            [](JsonWriter &json, const QVariant &value) { json.value(value.toDateTime()); },
            [](const JsonField &field) { return QVariant(field.time()); }},
        {QMetaType::QStringList, "texts"_L1, writeTexts, readTexts},
        {QMetaType::QVariantMap, "map"_L1, writeMap, readMap},
        {qMetaTypeId<Quantity>(), "quantity"_L1,
            [](JsonWriter &json, const QVariant &value) {
                json.value(value.value<Quantity>().value());
            },
            [](const JsonField &field) { return QVariant::fromValue(Quantity(field.number())); }},
    };
    return all;
}

void writeList(JsonWriter &json, const QVariant &value)
{
    json.beginArray();
    const QVariantList list = value.toList();
    for (const QVariant &item : list)
        write(json, item);
    json.endArray();
}

void writeAsKind(JsonWriter &json, const QVariant &value)
{
    const int type = value.typeId();
    const auto kind = std::find_if(
        kinds().cbegin(), kinds().cend(), [type](const Kind &other) { return other.type == type; });
    if (kind == kinds().cend())
        throw StorageError(
            tr::Tr(u"documentTypeNotKept"_s, u"значения типа %1 нельзя хранить в документе"_s)
                .arg(QString::fromLatin1(value.typeName())));
    json.beginObject();
    json.key(kind->name);
    kind->write(json, value);
    json.endObject();
}

QVariant readList(const JsonField &field)
{
    QVariantList list;
    for (const JsonField &item : field.items())
        list.append(item.variant());
    return list;
}

} // namespace

void write(JsonWriter &json, const QVariant &value)
{
    const int type = value.typeId();
    if (!value.isValid())
        json.null();
    else if (type == QMetaType::Bool)
        json.value(value.toBool());
    else if (type == QMetaType::QVariantList)
        writeList(json, value);
    else if (type == QMetaType::QString && !value.toString().isNull())
        json.value(value.toString());
    else
        writeAsKind(json, value);
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
        [&names](const Kind &other) { return names == QStringList{QString(other.name)}; });
    if (kind == kinds().cend())
        field.fail({u"jsonKnownKind"_s, u"значение известного вида"_s});
    return kind->read(field.at(kind->name));
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

} // namespace variantjson

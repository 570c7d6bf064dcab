#include "host/storage/jsonfield.h"

#include "host/storage/storageerror.h"
#include "host/storage/variantjson.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>
#include <utility>

using namespace Qt::Literals::StringLiterals;

JsonField::JsonField(QJsonValue value)
    : m_value(std::move(value))
{ }

JsonField::JsonField(QJsonValue value, const QString &parentPointer, const QString &name)
    : m_value(std::move(value))
    , m_pointer(parentPointer + u'/' + QString(name).replace(u'~', u"~0"_s).replace(u'/', u"~1"_s))
    , m_name(name)
{ }

JsonField JsonField::at(const QString &name) const
{
    if (!m_value.isObject())
        fail({u"jsonObject"_s, u"объект"_s});
    JsonField member(m_value[name], m_pointer, name);
    if (member.value().isUndefined())
        member.fail({u"jsonValue"_s, u"значение"_s});
    return member;
}

std::optional<JsonField> JsonField::find(const QString &name) const
{
    if (m_value.isObject() && m_value[name].isUndefined())
        return {};
    return at(name);
}

void JsonField::allowOnly(const QStringList &names) const
{
    if (!m_value.isObject())
        fail({u"jsonObject"_s, u"объект"_s});
    for (const JsonField &member : items())
        if (!names.contains(member.name()))
            member.fail(tr::Tr(u"jsonNoSuchMember"_s, u"такого члена нет; известны %1"_s)
                            .arg(names.join(u", "_s)));
}

QList<JsonField> JsonField::items() const
{
    if (!m_value.isArray() && !m_value.isObject())
        fail({u"jsonArrayOrObject"_s, u"массив или объект"_s});
    QList<JsonField> fields;
    const QJsonArray array = m_value.toArray();
    for (qsizetype i = 0; i < array.size(); ++i)
        fields.append(JsonField(array.at(i), m_pointer, QString::number(i)));
    const QJsonObject object = m_value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        fields.append(JsonField(member.value(), m_pointer, member.key()));
    return fields;
}

QString JsonField::text() const
{
    if (!m_value.isString())
        fail({u"jsonText"_s, u"текст"_s});
    return m_value.toString();
}

bool JsonField::flag() const
{
    if (!m_value.isBool())
        fail({u"jsonBoolean"_s, u"true или false"_s});
    return m_value.toBool();
}

int JsonField::integer() const
{
    using Limits = std::numeric_limits<int>;
    const qint64 number = m_value.toInteger(std::numeric_limits<qint64>::max());
    if (number < Limits::min() || number > Limits::max())
        fail({u"jsonInteger"_s, u"целое число в 32 разряда"_s});
    return static_cast<int>(number);
}

double JsonField::number() const
{
    const auto number = variantjson::toDouble(m_value);
    if (!number)
        fail({u"jsonNumber"_s, u"число"_s});
    return *number;
}

QDateTime JsonField::time() const
{
    if (isNull())
        return {};
    QDateTime time = QDateTime::fromString(text(), Qt::ISODateWithMs);
    if (!time.isValid())
        fail({u"jsonDateTime"_s, u"дата и время или null"_s});
    return time;
}

QVariant JsonField::variant() const
{
    return variantjson::toVariant(*this);
}

void JsonField::fail(const tr::Tr &expected) const
{
    throw StorageError(
        tr::Tr(u"jsonExpected"_s, u"«%1»: ожидается %2"_s).arg(m_pointer).arg(expected));
}

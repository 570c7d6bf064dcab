#include "host/storage/jsonfield.h"

#include "host/storage/storageerror.h"
#include "host/storage/variantjson.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

using namespace Qt::Literals::StringLiterals;

JsonField::JsonField(const QJsonValue &value)
    : m_value(value)
{ }

JsonField::JsonField(const QJsonValue &value, const QString &parentPointer, const QString &name)
    : m_value(value)
    , m_pointer(parentPointer + u'/' + QString(name).replace(u'~', u"~0"_s).replace(u'/', u"~1"_s))
    , m_name(name)
{ }

JsonField JsonField::at(const QString &name) const
{
    if (!m_value.isObject())
        fail(u"an object"_s);
    const JsonField member(m_value[name], m_pointer, name);
    if (member.value().isUndefined())
        member.fail(u"a value"_s);
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
        fail(u"an object"_s);
    for (const JsonField &member : items())
        if (!names.contains(member.name()))
            member.fail(u"no such member; the known ones are %1"_s.arg(names.join(u", "_s)));
}

QList<JsonField> JsonField::items() const
{
    if (!m_value.isArray() && !m_value.isObject())
        fail(u"an array or an object"_s);
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
        fail(u"a text"_s);
    return m_value.toString();
}

bool JsonField::flag() const
{
    if (!m_value.isBool())
        fail(u"true or false"_s);
    return m_value.toBool();
}

int JsonField::integer() const
{
    using Limits = std::numeric_limits<int>;
    const qint64 number = m_value.toInteger(std::numeric_limits<qint64>::max());
    if (number < Limits::min() || number > Limits::max())
        fail(u"an integer of 32 bits"_s);
    return static_cast<int>(number);
}

double JsonField::number() const
{
    const auto number = variantjson::toDouble(m_value);
    if (!number)
        fail(u"a number"_s);
    return *number;
}

QDateTime JsonField::time() const
{
    if (isNull())
        return {};
    const QDateTime time = QDateTime::fromString(text(), Qt::ISODateWithMs);
    if (!time.isValid())
        fail(u"date and time or null"_s);
    return time;
}

QVariant JsonField::variant() const
{
    return variantjson::toVariant(*this);
}

void JsonField::fail(const QString &expected) const
{
    throw StorageError(u"at \"%1\": expected %2"_s.arg(m_pointer, expected));
}

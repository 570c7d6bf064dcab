// What is written piece by piece is what Qt would have written of the whole.

#include "host/storage/jsonwriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

void write(JsonWriter &json, const QJsonValue &value);

void write(JsonWriter &json, const QJsonArray &array)
{
    json.beginArray();
    for (const QJsonValue value : array)
        write(json, value);
    json.endArray();
}

void write(JsonWriter &json, const QJsonObject &object)
{
    json.beginObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
        json.key(member.key());
        write(json, member.value());
    }
    json.endObject();
}

void write(JsonWriter &json, const QJsonValue &value)
{
    if (value.isNull())
        json.null();
    else if (value.isBool())
        json.value(value.toBool());
    else if (value.isDouble())
        json.value(value.toDouble());
    else if (value.isString())
        json.value(value.toString());
    else if (value.isArray())
        write(json, value.toArray());
    else
        write(json, value.toObject());
}

QByteArray written(const QJsonObject &object)
{
    JsonWriter json;
    write(json, object);
    return json.written();
}

QByteArray writtenByQt(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

/// A text that stands alone in an array.
QByteArray writtenAlone(double number)
{
    JsonWriter json;
    json.beginArray();
    json.value(number);
    json.endArray();
    return json.written().trimmed().sliced(1).chopped(1).trimmed();
}

/// Values by lot: any texts, halves of surrogate pairs among them, any numbers, nested.
class Lot
{
public:
    explicit Lot(quint32 seed)
        : m_generator(seed)
    { }

    QJsonObject object(int depth)
    {
        QJsonObject members;
        for (int count = below(5); count > 0; --count)
            members.insert(text(), value(depth));
        return members;
    }

private:
    int below(int end) { return m_generator.bounded(end); }

    QString text()
    {
        static const QList<char16_t> ends{u'\0', u'\n', u'\u001f', u' ', u'"', u'\\', u'/',
            u'\u007f', u'\u0080', u'\u07ff', u'\u0800', u'я', u'\ufffe', char16_t(0xd83d),
            char16_t(0xde00), char16_t(0xdbff), char16_t(0xdfff)};
        QString characters;
        for (int count = below(12); count > 0; --count)
            characters += below(2) == 0 ? QChar(ends.at(below(static_cast<int>(ends.size()))))
                                        : QChar(u'a' + below(26));
        return characters;
    }

    double number()
    {
        switch (below(4)) {
        case 0:
            return below(1000);
        case 1:
            return (below(2'000'000) - 1'000'000) / 100.0;
        case 2:
            return std::ldexp(m_generator.generateDouble() - 0.5, below(200) - 100);
        default:
            return std::ldexp(1.0, below(70));
        }
    }

    QJsonValue value(int depth)
    {
        switch (below(depth > 0 ? 7 : 4)) {
        case 0:
            return {};
        case 1:
            return below(2) == 0;
        case 2:
            return number();
        case 3:
            return text();
        case 4:
        case 5:
            return object(depth - 1);
        default:
            return array(depth - 1);
        }
    }

    QJsonArray array(int depth)
    {
        QJsonArray values;
        for (int count = below(4); count > 0; --count)
            values.append(value(depth));
        return values;
    }

    QRandomGenerator m_generator;
};

TEST(JsonWriter, WritesWhatQtWrites)
{
    constexpr quint32 documents = 2000;
    constexpr int depth = 4;
    for (quint32 seed = 0; seed < documents; ++seed) {
        const QJsonObject object = Lot(seed).object(depth);
        ASSERT_EQ(written(object).toStdString(), writtenByQt(object).toStdString()) << seed;
    }
}

TEST(JsonWriter, WritesEveryCharacterAsQtDoes)
{
    constexpr int end = 0x10000;
    for (int unit = 0; unit < end; ++unit) {
        const QJsonObject object{{u"a"_s, QString(QChar(static_cast<char16_t>(unit)))}};
        ASSERT_EQ(written(object), writtenByQt(object)) << unit;
    }
}

TEST(JsonWriter, WritesNumbersSoThatTheyComeBackAsTheyWere)
{
    using Limits = std::numeric_limits<double>;
    const QList<std::pair<double, QByteArray>> rows{
        {0.0, "0"},
        {-0.0, "\"0x8000000000000000\""},
        {10.5, "10.5"},
        {-3.0, "-3"},
        {9007199254740991.0, "9007199254740991"},
        {9223372036854775808.0, "9223372036854776000"},
        {Limits::infinity(), "\"0x7ff0000000000000\""},
        {-Limits::infinity(), "\"0xfff0000000000000\""},
        {std::bit_cast<double>(quint64{0x7ff8000000000001}), "\"0x7ff8000000000001\""},
    };
    for (const auto &[number, text] : rows)
        EXPECT_EQ(writtenAlone(number), text);
}

TEST(JsonWriter, WritesTimesToTheMillisecond)
{
    JsonWriter json;
    json.beginObject();
    json.member("never"_L1, QDateTime());
    json.member("then"_L1, QDateTime(QDate(2024, 2, 29), QTime(23, 59, 58, 7)));
    json.endObject();
    EXPECT_EQ(
        json.written(), "{\n    \"never\": null,\n    \"then\": \"2024-02-29T23:59:58.007\"\n}\n");
}

} // namespace

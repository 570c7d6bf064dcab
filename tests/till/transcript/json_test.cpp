// Values in their natural JSON form.

#include "host/framework/tr.h"
#include "till/transcript/json.h"

#include <QDate>
#include <QDateTime>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(JsonTest, VariantsKeepTheirNature)
{
    const QDateTime time(QDate(2026, 3, 1), QTime(12, 30));
    const QList<QPair<QVariant, const char *>> rows{{QVariant(), "null"}, {true, "true"}, {7, "7"},
        {qlonglong(-5000000000), "-5000000000"}, {7U, "7"}, {0.5, "0.5"}, {100.0, "100.0"},
        {nan, "null"}, {infinite, "null"}, {u"120.50"_s, "\"120.50\""}, {QString(), "\"\""},
        {QStringList{u"a"_s, u"b"_s}, R"(["a","b"])"}, {QVariantList{1, u"x"_s}, R"([1,"x"])"},
        {QVariantMap{{u"b"_s, 1}, {u"a"_s, QVariantMap{}}}, R"({"a":{},"b":1})"},
        {QDate(2026, 3, 1), "\"2026-03-01\""}, {QDate(), "null"}, {time, "\"2026-03-01T12:30:00\""},
        {QDateTime(), "null"}, {QVariant(tr::Tr(u"id"_s, u"Код %1"_s).arg(u"5"_s)), "\"Код 5\""}};
    for (const auto &[value, json] : rows)
        EXPECT_EQ(till::toJson(value).dump(), json);
}

TEST(JsonTest, AmountsAreNumbersAlsoWhereATextIsStored)
{
    const QList<QPair<QVariant, const char *>> rows{{u"120.50"_s, "120.5"}, {120.5, "120.5"},
        {7, "7.0"}, {QVariant(), "null"}, {u""_s, "null"}, {u"none"_s, "null"}, {nan, "null"}};
    for (const auto &[value, json] : rows)
        EXPECT_EQ(till::amountToJson(value).dump(), json);
}

TEST(JsonTest, BrokenTextsCanStillBeWritten)
{
    EXPECT_NO_THROW((void)till::Json(till::toJson(QString(QChar(0xD800)))).dump());
}

} // namespace

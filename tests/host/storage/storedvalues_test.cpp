// Stored values come back from disk with value and type.

#include "host/framework/basicexception.h"
#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"
#include "tests/support/hostfixture.h"

#include <QDate>
#include <QDateTime>
#include <QJsonDocument>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

class StoredValuesTest : public testing::Test, public HostFixture
{
protected:
    StoredValuesTest() { givenCurrentDocument(); }

    QVariant whenKept(const QVariant &value)
    {
        document()->setStoredValue(u"group"_s, u"key"_s, value);
        const QByteArray file = documentjson::write(*document());
        EXPECT_EQ(QJsonDocument::fromJson(file).toJson(QJsonDocument::Indented), file);
        const auto read = documentjson::read(file, u"file"_s);
        return read->getStoredValue(u"group"_s, u"key"_s, u"missing"_s);
    }
};

TEST_F(StoredValuesTest, ComeBackWithValueAndType)
{
    const QDateTime local(QDate(2024, 2, 29), QTime(23, 59, 58, 7));
    const QList<QVariant> values{
        u"120.50"_s,
        u""_s,
        u"null"_s,
        u"Скидка \"10%\"\n\t\u0001 / ~"_s,
        true,
        false,
        0,
        -1,
        std::numeric_limits<int>::max(),
        std::numeric_limits<int>::min(),
        std::numeric_limits<uint>::max(),
        std::numeric_limits<qlonglong>::min(),
        std::numeric_limits<qulonglong>::max(),
        QDate(2024, 2, 29),
        QDate(),
        local,
        local.toUTC(),
        local.toOffsetFromUtc(3 * 3600),
        QDateTime(),
        QStringList{},
        QStringList{u"one"_s, u""_s, u"a,b"_s},
        QVariantList{},
        QVariantList{1, u"1"_s, 1.0, QVariant(), QVariantList{true}},
        QVariantMap{},
        QVariantMap{{u"double"_s, 1.5}, {u"a/b~"_s, QVariantMap{{u""_s, 1}}}, {u"no"_s, {}}},
        QVariantMap{{u"int"_s, 5}},
        QVariant(),
    };
    for (const QVariant &value : values) {
        SCOPED_TRACE(value.typeName());
        const QVariant kept = whenKept(value);
        EXPECT_EQ(kept.typeId(), value.typeId());
        EXPECT_EQ(kept, value);
    }
}

TEST_F(StoredValuesTest, DoublesComeBackBitByBit)
{
    using Limits = std::numeric_limits<double>;
    const QList<double> values{0.0, -0.0, 1.0, 120.5, 0.1, 0.1 + 0.2, 1.0 / 3.0, 1e22, 1e300,
        9007199254740993.0, Limits::max(), Limits::min(), Limits::denorm_min(), Limits::epsilon(),
        Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN()};
    for (const double value : values) {
        SCOPED_TRACE(value);
        const QVariant kept = whenKept(value);
        EXPECT_EQ(kept.typeId(), QMetaType::Double);
        EXPECT_EQ(std::bit_cast<quint64>(kept.toDouble()), std::bit_cast<quint64>(value));
    }
}

TEST_F(StoredValuesTest, NullTextAndEmptyTextStayApart)
{
    EXPECT_TRUE(whenKept(QString()).toString().isNull());
    EXPECT_EQ(whenKept(QString()).typeId(), QMetaType::QString);
    EXPECT_FALSE(whenKept(u""_s).toString().isNull());
}

TEST_F(StoredValuesTest, LocalTimesStayLocal)
{
    const QDateTime local(QDate(2024, 2, 29), QTime(12, 0));
    EXPECT_EQ(whenKept(local).toDateTime().timeSpec(), Qt::LocalTime);
    EXPECT_EQ(whenKept(local.toUTC()).toDateTime().timeSpec(), Qt::UTC);
}

TEST_F(StoredValuesTest, AnInvalidValueIsStoredNotMissing)
{
    EXPECT_FALSE(whenKept(QVariant()).isValid());
}

TEST_F(StoredValuesTest, TypeThatTheFormatDoesNotKnowIsAnErrorThatNamesIt)
{
    try {
        whenKept(QVariant::fromValue(tr::Tr(u"id"_s, u"text"_s)));
        FAIL() << "a message was kept";
    } catch (const StorageError &error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("tr::Tr"));
    }
}

} // namespace

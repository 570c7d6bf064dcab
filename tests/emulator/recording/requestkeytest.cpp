#include "emulator/recording/requestkey.h"

#include "tests/emulator/support/samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class RequestKeyTest : public testing::Test
{
protected:
    RequestKey of(const QByteArray &request) const { return keyOf(request, schema); }

    /// Whether a sample and itself after the change are the same to a replay.
    bool isSame(const char *name, const char *from, const char *to) const
    {
        const QByteArray changed = sample(name).replace(from, to);
        EXPECT_NE(changed, sample(name)) << from;
        EXPECT_EQ(qHash(of(changed)) == qHash(of(sample(name))), of(changed) == of(sample(name)));
        return of(changed) == of(sample(name));
    }

    const MessageSchema schema;
};

TEST_F(RequestKeyTest, TellsOperationsApart)
{
    const std::pair<const char *, QString> samples[] = {{"balance-request.xml", u"balance"_s},
        {"sale-soft-request.xml", u"soft"_s}, {"sale-fiscal-request.xml", u"fiscal"_s},
        {"return-request.xml", u"return"_s}, {"rollback-request.xml", u"rollback"_s}};
    for (const auto &[name, operation] : samples)
        EXPECT_EQ(of(sample(name)).operation, operation);
}

TEST_F(RequestKeyTest, TellsCardsApart)
{
    for (const char *name : {"balance-request.xml", "sale-soft-request.xml",
             "sale-fiscal-request.xml", "return-request.xml", "rollback-request.xml"})
        EXPECT_FALSE(isSame(name, "2900000000017", "2900000000024")) << name;
}

TEST_F(RequestKeyTest, TellsArticlesPricesAndQuantitiesApart)
{
    const char *name = "sale-soft-request.xml";
    EXPECT_FALSE(isSame(name, "<Article>1004", "<Article>1005"));
    EXPECT_FALSE(isSame(name, "<Price>399.00", "<Price>399.01"));
    EXPECT_FALSE(isSame(name, "<Quantity>0.500", "<Quantity>0.501"));
    EXPECT_FALSE(isSame("return-request.xml", "<Quantity>1.000", "<Quantity>2.000"));
}

TEST_F(RequestKeyTest, LooksAtNothingElseOfACheque)
{
    const char *name = "sale-soft-request.xml";
    EXPECT_TRUE(isSame(name, "<DateTime>2024", "<DateTime>2025"));
    EXPECT_TRUE(isSame(name, "<Number>17", "<Number>18"));
    EXPECT_TRUE(isSame(name, "<PaidByBonus>815.30", "<PaidByBonus>100.00"));
    EXPECT_TRUE(isSame(name, "<POS>1", "<POS>2"));
    EXPECT_TRUE(isSame(name, "<Value>red", "<Value>blue"));
}

TEST_F(RequestKeyTest, TellsRollbacksApartByTheirTransaction)
{
    EXPECT_FALSE(isSame("rollback-request.xml", "0000000001", "0000000002"));
}

TEST_F(RequestKeyTest, TellsWhatCannotBeReadApartByItsBytes)
{
    EXPECT_FALSE(of("junk").isReadable());
    EXPECT_EQ(of("junk"), of("junk"));
    EXPECT_FALSE(of("junk") == of("junk "));
    EXPECT_NE(qHash(of("junk")), qHash(of("junk ")));
}

TEST_F(RequestKeyTest, DescribesWhatWasAsked)
{
    EXPECT_EQ(description(of(sample("balance-request.xml"))), u"balance, card 2900000000017");
    EXPECT_EQ(description(of(sample("return-request.xml"))),
        u"return, card 2900000000017, 1001 × 1.000 at 45.90");
    EXPECT_EQ(description(of(sample("rollback-request.xml"))),
        u"rollback, card 2900000000017, transaction 0000000001");
    EXPECT_EQ(description(of("junk")), u"a request of 4 bytes that cannot be read");
}

TEST_F(RequestKeyTest, DescribesLongChequesInShort)
{
    RequestKey key{u"soft"_s, u"1"_s, QStringList(10, u"a"_s), {}};
    EXPECT_EQ(contentDescription(key), u"a; a; a; a; a; a; a; a; a; a");
    key.content += {u"%2"_s, u"b"_s};
    EXPECT_EQ(contentDescription(key), u"a; a; a; a; a; a; a; a; a; a and 2 more");
    EXPECT_EQ(contentDescription(RequestKey()), u"nothing sold");
}

} // namespace
} // namespace emulator

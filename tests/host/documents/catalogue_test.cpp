// The catalogue: what can be left out, how articles are found, what scans are.

#include "host/documents/catalogue.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class CatalogueTest : public testing::Test
{
protected:
    void whenRead(const char *contents)
    {
        catalogue = Catalogue::parse(contents, u"catalogue.json"_s);
    }

    Catalogue catalogue;
};

TEST_F(CatalogueTest, OnlyCodeAndPriceAreNeeded)
{
    whenRead(R"({"articles": [{"code": "1001", "price": 45.9}]})");
    const Article *article = catalogue.byCode(u"1001"_s);
    ASSERT_NE(article, nullptr);
    EXPECT_DOUBLE_EQ(article->price, 45.9);
    EXPECT_EQ(article->name, u"1001"_s);
    EXPECT_EQ(article->unit.getName(), u"шт"_s);
    EXPECT_FALSE(article->unit.isFractional());
    EXPECT_DOUBLE_EQ(article->minRetailPrice, 0);
    EXPECT_TRUE(article->extendedOptions.isEmpty());
    ASSERT_FALSE(article->tmc.isNull());
    EXPECT_TRUE(article->tmc->getIndexPrices().isEmpty());
}

TEST_F(CatalogueTest, ReadsEveryMemberOfAnArticle)
{
    whenRead(R"({"articles": [{"code": "1003", "barcodes": ["461", "462"], "name": "Сыр",
        "price": 649, "unit": {"name": "кг", "fractional": true}, "minRetailPrice": 500.5,
        "extendedOptions": "a,b", "indexPrices": [{"code": 5, "price": 600}]}]})");
    const Article &article = catalogue.articles().first();
    EXPECT_EQ(article.barcodes, (QStringList{u"461"_s, u"462"_s}));
    EXPECT_EQ(article.name, u"Сыр"_s);
    EXPECT_EQ(article.unit.getName(), u"кг"_s);
    EXPECT_TRUE(article.unit.isFractional());
    EXPECT_DOUBLE_EQ(article.minRetailPrice, 500.5);
    EXPECT_EQ(article.extendedOptions, u"a,b"_s);
    EXPECT_DOUBLE_EQ(article.tmc->getIndexPrice(5)->getPrice(), 600);
}

TEST_F(CatalogueTest, FindsArticlesByCodeAndByEachBarcode)
{
    whenRead(R"({"articles": [{"code": "1", "price": 1, "barcodes": ["461", "462"]},
        {"code": "2", "price": 2, "barcodes": ["463"]}]})");
    EXPECT_EQ(catalogue.byCode(u"2"_s), &catalogue.articles().last());
    EXPECT_EQ(catalogue.byBarcode(u"462"_s), &catalogue.articles().first());
    EXPECT_EQ(catalogue.byBarcode(u"463"_s), &catalogue.articles().last());
    EXPECT_EQ(catalogue.byCode(u"461"_s), nullptr);
    EXPECT_EQ(catalogue.byBarcode(u"1"_s), nullptr);
}

TEST_F(CatalogueTest, PrefixesTellCardsFromCoupons)
{
    whenRead(R"({"scan": {"cardPrefixes": ["29", "30"], "couponPrefixes": ["99"]}})");
    EXPECT_TRUE(catalogue.isCard(u"3000000000017"_s));
    EXPECT_FALSE(catalogue.isCard(u"9900000000018"_s));
    EXPECT_TRUE(catalogue.isCoupon(u"9900000000018"_s));
    EXPECT_FALSE(catalogue.isCoupon(u"4699"_s));
}

TEST_F(CatalogueTest, PlaceOfTheTill)
{
    whenRead(R"({"till": {"shop": "12", "number": "3", "firstCheque": 100}})");
    EXPECT_EQ(catalogue.place().shop, u"12"_s);
    EXPECT_EQ(catalogue.place().number, u"3"_s);
    EXPECT_EQ(catalogue.place().firstCheque, 100);
}

TEST_F(CatalogueTest, EmptyCatalogueIsTheFirstTillOfTheFirstShop)
{
    whenRead("{}");
    EXPECT_TRUE(catalogue.articles().isEmpty());
    EXPECT_FALSE(catalogue.isCard(u"29"_s));
    EXPECT_EQ(catalogue.place().shop, u"1"_s);
    EXPECT_EQ(catalogue.place().number, u"1"_s);
    EXPECT_EQ(catalogue.place().firstCheque, 1);
}

TEST_F(CatalogueTest, CommentsAreAllowed)
{
    whenRead("// one\n{\"articles\": /* two */ [{\"code\": \"1\", \"price\": 1}]}");
    EXPECT_EQ(catalogue.articles().size(), 1);
}

TEST_F(CatalogueTest, CopyFindsItsOwnArticles)
{
    whenRead(R"({"articles": [{"code": "1", "price": 1}]})");
    const Catalogue copy = catalogue;
    catalogue = Catalogue();
    ASSERT_NE(copy.byCode(u"1"_s), nullptr);
    EXPECT_DOUBLE_EQ(copy.byCode(u"1"_s)->price, 1);
}

TEST_F(CatalogueTest, SampleCanBeRead)
{
    catalogue = Catalogue::load(QStringLiteral(KORVEL_SOURCE_DIR "/config/catalogue.json"));
    EXPECT_DOUBLE_EQ(catalogue.byCode(u"1001"_s)->price, 45.9);
    EXPECT_DOUBLE_EQ(catalogue.byCode(u"1004"_s)->tmc->getIndexPrice(5)->getPrice(), 350);
    EXPECT_TRUE(catalogue.byBarcode(u"4600000010039"_s)->unit.isFractional());
    EXPECT_TRUE(catalogue.isCard(u"2900000000017"_s));
    EXPECT_TRUE(catalogue.isCoupon(u"9900000000018"_s));
}

} // namespace

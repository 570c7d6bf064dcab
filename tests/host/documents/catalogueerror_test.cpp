// A catalogue that is not as it should be: where, and what was expected.

#include "host/documents/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Case
{
    const char *name;
    const char *contents;
    const char *place;
    const char *expected;
};

class CatalogueErrorTest : public testing::TestWithParam<Case>
{
protected:
    static std::string errorOf(const char *contents)
    {
        try {
            static_cast<void>(Catalogue::parse(contents, u"shop.json"_s));
        } catch (const CatalogueError &error) {
            return error.what();
        }
        return {};
    }
};

TEST_P(CatalogueErrorTest, NamesThePlaceAndWhatWasExpected)
{
    const std::string error = errorOf(GetParam().contents);
    EXPECT_THAT(error, testing::StartsWith(GetParam().place));
    EXPECT_THAT(error, testing::HasSubstr(GetParam().expected));
    EXPECT_THAT(error, testing::Not(testing::HasSubstr("\n")));
}

const Case cases[]{
    {"SyntaxInTheFirstLine", "{", "shop.json:1:2: ", "unexpected end of input"},
    {"SyntaxInAnotherLine", "{\n \"articles\": [}", "shop.json:2:15: ", "unexpected '}'"},
    {"ColumnsAreCharacters", "{\"till\": {\"shop\": \"Ёж\" 1}}", "shop.json:1:24: ", "unexpected"},
    {"NumberThatIsTooLarge", R"({"articles": [{"code": "1", "price": 1e999}]})",
        "shop.json: number overflow", "1e999"},
    {"EmptyFile", "", "shop.json:1:1: ", "unexpected end of input"},
    {"NoObject", "[]", "shop.json: «»: ", "ожидается объект"},
    {"PlainNumber", "5", "shop.json: «»: ", "ожидается объект"},
    {"UnknownMember", R"({"aricles": []})",
        "shop.json: «/aricles»: ", "известны articles, scan, till"},
    {"UnknownMemberOfAnArticle", R"({"articles": [{"code": "1", "price": 1, "prise": 2}]})",
        "shop.json: «/articles/0/prise»: ", "такого члена нет"},
    {"UnknownMemberOfTheUnit",
        R"({"articles": [{"code": "1", "price": 1, "unit": {"names": "кг"}}]})",
        "shop.json: «/articles/0/unit/names»: ", "такого члена нет"},
    {"UnknownMemberOfAnIndexPrice",
        R"({"articles": [{"code": "1", "price": 1, "indexPrices": [{"cod": 5}]}]})",
        "shop.json: «/articles/0/indexPrices/0/cod»: ", "такого члена нет"},
    {"UnknownMemberOfTheScan", R"({"scan": {"prefixes": []}})",
        "shop.json: «/scan/prefixes»: ", "такого члена нет"},
    {"UnknownMemberOfTheTill", R"({"till": {"nummer": "1"}})",
        "shop.json: «/till/nummer»: ", "такого члена нет"},
    {"NoCode", R"({"articles": [{"price": 1}]})",
        "shop.json: «/articles/0/code»: ", "ожидается значение"},
    {"NoPrice", R"({"articles": [{"code": "1"}]})",
        "shop.json: «/articles/0/price»: ", "ожидается значение"},
    {"CodeAsANumber", R"({"articles": [{"code": 1, "price": 1}]})",
        "shop.json: «/articles/0/code»: ", "ожидается текст"},
    {"PriceAsAText", R"({"articles": [{"code": "1", "price": "1"}]})",
        "shop.json: «/articles/0/price»: ", "ожидается цена"},
    {"PriceBelowZero", R"({"articles": [{"code": "1", "price": -0.01}]})",
        "shop.json: «/articles/0/price»: ", "ожидается цена"},
    {"FractionalAsAText",
        R"({"articles": [{"code": "1", "price": 1, "unit": {"fractional": "no"}}]})",
        "shop.json: «/articles/0/unit/fractional»: ", "ожидается true или false"},
    {"BarcodesAsAText", R"({"articles": [{"code": "1", "price": 1, "barcodes": "46"}]})",
        "shop.json: «/articles/0/barcodes»: ", "ожидается массив"},
    {"CodeTwice", R"({"articles": [{"code": "1", "price": 1}, {"code": "1", "price": 2}]})",
        "shop.json: «/articles/1»: ", "«1» уже занят"},
    {"BarcodeTwice",
        R"({"articles": [{"code": "1", "price": 1, "barcodes": ["46"]},
            {"code": "2", "price": 2, "barcodes": ["46"]}]})",
        "shop.json: «/articles/1»: ", "«46» уже занят"},
    {"EmptyCode", R"({"articles": [{"code": "", "price": 1}]})",
        "shop.json: «/articles/0»: ", "«» уже занят"},
    {"FirstChequeBelowOne", R"({"till": {"firstCheque": 0}})",
        "shop.json: «/till/firstCheque»: ", "число от 1"},
    {"FirstChequeWithAFraction", R"({"till": {"firstCheque": 1.5}})",
        "shop.json: «/till/firstCheque»: ", "целое число"},
};

INSTANTIATE_TEST_SUITE_P(Catalogues, CatalogueErrorTest, testing::ValuesIn(cases),
    [](const auto &row) { return row.param.name; });

TEST(CatalogueFileTest, MissingFileIsNamed)
{
    try {
        static_cast<void>(Catalogue::load(u"/nowhere/shop.json"_s));
        FAIL() << "a missing file was read";
    } catch (const CatalogueError &error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("/nowhere/shop.json"));
        EXPECT_THAT(error.what(), testing::HasSubstr("Till:catalogue"));
    }
}

} // namespace

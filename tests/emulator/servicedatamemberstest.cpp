#include "emulator/data/servicedatareader.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

using namespace Qt::Literals::StringLiterals;
using testing::StartsWith;

namespace emulator {
namespace {

/// Wrong values of a kind, and what is expected instead of each.
struct Wrong
{
    const char *json;
    const char *expected;
};

using Kind = std::vector<Wrong>;

const Kind text = {{"5", "a text, got 5"}, {"null", "a text, got null"},
    {R"("\u0007")", "a text without control characters"}};
const Kind textWithContent = {{"[]", "a text, got []"}, {R"("")", "a text that is not empty"}};
const Kind truth = {{"1", "true or false, got 1"}, {R"("true")", "true or false"}};
const Kind wholeNumber = {{"1.5", "a whole number, got 1.5"}, {R"("2")", "a whole number"},
    {"3000000000", "a whole number, got 3000000000"}, {"-3000000000", "a whole number"},
    {"true", "a whole number, got true"}};
const Kind countFromZero = {{"0.5", "a whole number"}, {"-1", "a whole number of at least 0"}};
const Kind countFromOne = {{"1.5", "a whole number"}, {"0", "a whole number of at least 1, got 0"}};
const Kind amount = {{R"("1")", "an amount of zero or more with at most two decimals"},
    {"-0.01", "an amount of zero or more"}, {"0.001", "an amount of zero or more"},
    {"1000000000.01", "an amount of zero or more"}};
const Kind amountAboveZero = {{"0", "an amount above zero"}, {"-1", "an amount of zero or more"}};
const Kind percent = {{"100.01", "a percentage from 0 to 100 with at most two decimals"},
    {"-1", "a percentage"}, {"1.234", "a percentage"}, {R"("5")", "a percentage"}};
const Kind array = {{"{}", "an array, got {}"}, {"5", "an array, got 5"}};
const Kind object = {{"[]", "an object, got []"}, {"5", "an object, got 5"}};
const Kind digits = {{R"("37x")", "digits, got \"37x\""}, {R"("")", "digits"}, {"37", "a text"}};
const Kind shortDigits = {{R"("1234567")", "at most six digits"}, {R"("x")", "digits"}};
const Kind code = {{R"("")", "Latin letters and digits"}, {R"("a b")", "Latin letters and digits"}};
const Kind message = {{R"("{coupon}")", "only the placeholders {holder} {card}"}, {"5", "a text"}};
const Kind couponText
    = {{R"("")", "a text with {coupon}"}, {R"("{coupon} {x}")", "only the placeholders {holder}"}};
const Kind operation = {{R"("sale")", "one of balance, soft, fiscal, return, rollback"}};

struct Member
{
    const char *pointer;
    const char *file; ///< where "%" stands for the member's value
    const Kind *kind;
};

/// Every member of the file, and the items of every list.
const Member members[] = {
    {"/servedStatuses", R"({"servedStatuses": %})", &array},
    {"/servedStatuses/0", R"({"servedStatuses": [%]})", &wholeNumber},
    {"/cards", R"({"cards": %})", &array},
    {"/cards/0", R"({"cards": [%]})", &object},
    {"/cards/0/number", R"({"cards": [{"number": %}]})", &textWithContent},
    {"/cards/0/status", R"({"cards": [{"number": "1", "status": %}]})", &wholeNumber},
    {"/cards/0/type", R"({"cards": [{"number": "1", "type": %}]})", &text},
    {"/cards/0/holder", R"({"cards": [{"number": "1", "holder": %}]})", &text},
    {"/cards/0/email", R"({"cards": [{"number": "1", "email": %}]})", &text},
    {"/cards/0/chequesByEmail", R"({"cards": [{"number": "1", "chequesByEmail": %}]})", &truth},
    {"/cards/0/balance", R"({"cards": [{"number": "1", "balance": %}]})", &amount},
    {"/cards/0/stickers", R"({"cards": [{"number": "1", "stickers": %}]})", &countFromZero},
    {"/cards/0/attributes", R"({"cards": [{"number": "1", "attributes": %}]})", &object},
    {"/cards/0/attributes/a", R"({"cards": [{"number": "1", "attributes": {"a": %}}]})", &text},
    {"/cards/0/forced", R"({"cards": [{"number": "1", "forced": %}]})", &object},
    {"/cards/0/forced/code", R"({"cards": [{"number": "1", "forced": {"code": %}}]})",
        &wholeNumber},
    {"/cards/0/forced/message",
        R"({"cards": [{"number": "1", "forced": {"code": 1, "message": %}}]})", &text},
    {"/cards/0/forced/operations",
        R"({"cards": [{"number": "1", "forced": {"code": 1, "operations": %}}]})", &array},
    {"/cards/0/forced/operations/0",
        R"({"cards": [{"number": "1", "forced": {"code": 1, "operations": [%]}}]})", &operation},
    {"/technicalCards", R"({"technicalCards": %})", &object},
    {"/technicalCards/prefix", R"({"technicalCards": {"prefix": %}})", &digits},
    {"/technicalCards/type", R"({"technicalCards": {"prefix": "1", "type": %}})", &text},
    {"/technicalCards/status", R"({"technicalCards": {"prefix": "1", "status": %}})", &wholeNumber},
    {"/discounts", R"({"discounts": %})", &object},
    {"/discounts/articles", R"({"discounts": {"articles": %}})", &array},
    {"/discounts/articles/0", R"({"discounts": {"articles": [%]}})", &object},
    {"/discounts/articles/0/article",
        R"({"discounts": {"articles": [{"article": %, "percent": 1}]}})", &textWithContent},
    {"/discounts/articles/0/percent",
        R"({"discounts": {"articles": [{"article": "A", "percent": %}]}})", &percent},
    {"/discounts/articles/0/amount",
        R"({"discounts": {"articles": [{"article": "A", "amount": %}]}})", &amount},
    {"/discounts/groups", R"({"discounts": {"groups": %}})", &array},
    {"/discounts/groups/0", R"({"discounts": {"groups": [%]}})", &object},
    {"/discounts/groups/0/articles",
        R"({"discounts": {"groups": [{"articles": %, "percent": 1}]}})", &array},
    {"/discounts/groups/0/articles/0",
        R"({"discounts": {"groups": [{"articles": [%], "percent": 1}]}})", &textWithContent},
    {"/discounts/groups/0/percent",
        R"({"discounts": {"groups": [{"articles": ["A"], "percent": %}]}})", &percent},
    {"/discounts/groups/0/amount",
        R"({"discounts": {"groups": [{"articles": ["A"], "amount": %}]}})", &amount},
    {"/discounts/cheque", R"({"discounts": {"cheque": %}})", &array},
    {"/discounts/cheque/0", R"({"discounts": {"cheque": [%]}})", &object},
    {"/discounts/cheque/0/from", R"({"discounts": {"cheque": [{"percent": 1, "from": %}]}})",
        &amount},
    {"/discounts/cheque/0/percent", R"({"discounts": {"cheque": [{"percent": %}]}})", &percent},
    {"/discounts/cheque/0/amount", R"({"discounts": {"cheque": [{"amount": %}]}})", &amount},
    {"/earning", R"({"earning": %})", &object},
    {"/earning/percent", R"({"earning": {"percent": %}})", &percent},
    {"/earning/statusPercent", R"({"earning": {"statusPercent": %}})", &percent},
    {"/earning/articles", R"({"earning": {"articles": %}})", &array},
    {"/earning/articles/0", R"({"earning": {"articles": [%]}})", &object},
    {"/earning/articles/0/article", R"({"earning": {"articles": [{"article": %, "percent": 1}]}})",
        &textWithContent},
    {"/earning/articles/0/percent",
        R"({"earning": {"articles": [{"article": "A", "percent": %}]}})", &percent},
    {"/earning/cheque", R"({"earning": {"cheque": %}})", &array},
    {"/earning/cheque/0", R"({"earning": {"cheque": [%]}})", &object},
    {"/earning/cheque/0/from", R"({"earning": {"cheque": [{"points": 1, "from": %}]}})", &amount},
    {"/earning/cheque/0/points", R"({"earning": {"cheque": [{"points": %}]}})", &amount},
    {"/spending", R"({"spending": %})", &object},
    {"/spending/sharePercent", R"({"spending": {"sharePercent": %}})", &percent},
    {"/spending/confirmAbove", R"({"spending": {"confirmAbove": %}})", &amount},
    {"/spending/code", R"({"spending": {"code": %}})", &code},
    {"/spending/codeMinutes", R"({"spending": {"codeMinutes": %}})", &countFromOne},
    {"/spending/codeAttempts", R"({"spending": {"codeAttempts": %}})", &countFromOne},
    {"/stickerOffers", R"({"stickerOffers": %})", &array},
    {"/stickerOffers/0", R"({"stickerOffers": [%]})", &object},
    {"/stickerOffers/0/article",
        R"({"stickerOffers": [{"article": %, "stickers": 1, "discount": 1}]})", &textWithContent},
    {"/stickerOffers/0/stickers",
        R"({"stickerOffers": [{"article": "A", "stickers": %, "discount": 1}]})", &countFromOne},
    {"/stickerOffers/0/discount",
        R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": %}]})", &amountAboveZero},
    {"/stickerOffers/0/limit",
        R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": 1, "limit": %}]})",
        &countFromOne},
    {"/coupons", R"({"coupons": %})", &array},
    {"/coupons/0", R"({"coupons": [%]})", &object},
    {"/coupons/0/number", R"({"coupons": [{"number": %}]})", &textWithContent},
    {"/coupons/0/emission", R"({"coupons": [{"number": "1", "emission": %}]})", &text},
    {"/coupons/0/applicable", R"({"coupons": [{"number": "1", "applicable": %}]})", &truth},
    {"/coupons/0/once", R"({"coupons": [{"number": "1", "once": %}]})", &truth},
    {"/coupons/0/percent", R"({"coupons": [{"number": "1", "percent": %}]})", &percent},
    {"/coupons/0/amount", R"({"coupons": [{"number": "1", "amount": %}]})", &amount},
    {"/instantCoupons", R"({"instantCoupons": %})", &array},
    {"/instantCoupons/0", R"({"instantCoupons": [%]})", &object},
    {"/instantCoupons/0/from",
        R"({"instantCoupons": [{"prefix": "1", "text": "{coupon}", "from": %}]})", &amount},
    {"/instantCoupons/0/prefix", R"({"instantCoupons": [{"text": "{coupon}", "prefix": %}]})",
        &shortDigits},
    {"/instantCoupons/0/text", R"({"instantCoupons": [{"prefix": "1", "text": %}]})", &couponText},
    {"/instantCoupons/0/percent",
        R"({"instantCoupons": [{"prefix": "1", "text": "{coupon}", "percent": %}]})", &percent},
    {"/instantCoupons/0/amount",
        R"({"instantCoupons": [{"prefix": "1", "text": "{coupon}", "amount": %}]})", &amount},
    {"/messages", R"({"messages": %})", &object},
    {"/messages/soft", R"({"messages": {"soft": %}})", &object},
    {"/messages/soft/cashier", R"({"messages": {"soft": {"cashier": %}}})", &message},
    {"/messages/soft/cheque", R"({"messages": {"soft": {"cheque": %}}})", &message},
    {"/messages/fiscal", R"({"messages": {"fiscal": %}})", &object},
    {"/messages/fiscal/cashier", R"({"messages": {"fiscal": {"cashier": %}}})", &message},
    {"/messages/fiscal/cheque", R"({"messages": {"fiscal": {"cheque": %}}})", &message},
};

/// Members that an object cannot be without, and an object that has all of them.
struct Needed
{
    const char *pointer; ///< of the object
    const char *file; ///< where "%" stands for the object
    const char *whole;
    QStringList names;
};

const Needed needs[] = {
    {"/cards/0", R"({"cards": [%]})", R"({"number": "1"})", {u"number"_s}},
    {"/cards/0/forced", R"({"cards": [{"number": "1", "forced": %}]})", R"({"code": 1})",
        {u"code"_s}},
    {"/technicalCards", R"({"technicalCards": %})", R"({"prefix": "1"})", {u"prefix"_s}},
    {"/discounts/articles/0", R"({"discounts": {"articles": [%]}})",
        R"({"percent": 1, "article": "A"})", {u"article"_s}},
    {"/discounts/groups/0", R"({"discounts": {"groups": [%]}})",
        R"({"percent": 1, "articles": []})", {u"articles"_s}},
    {"/earning/articles/0", R"({"earning": {"articles": [%]}})",
        R"({"percent": 1, "article": "A"})", {u"article"_s, u"percent"_s}},
    {"/earning/cheque/0", R"({"earning": {"cheque": [%]}})", R"({"points": 1})", {u"points"_s}},
    {"/stickerOffers/0", R"({"stickerOffers": [%]})",
        R"({"discount": 1, "stickers": 1, "article": "A"})",
        {u"article"_s, u"stickers"_s, u"discount"_s}},
    {"/coupons/0", R"({"coupons": [%]})", R"({"number": "1"})", {u"number"_s}},
    {"/instantCoupons/0", R"({"instantCoupons": [%]})", R"({"text": "{coupon}", "prefix": "1"})",
        {u"prefix"_s, u"text"_s}},
};

std::string complaintAbout(const char *file, const QByteArray &value)
{
    try {
        readServiceData(QByteArray(file).replace('%', value));
    } catch (const DataError &error) {
        return error.what();
    }
    return "the data was accepted";
}

TEST(ServiceDataMembers, AreToldByPointerWhateverIsWrongWithThem)
{
    for (const Member &member : members) {
        for (const Wrong &wrong : *member.kind) {
            SCOPED_TRACE(member.pointer);
            EXPECT_THAT(complaintAbout(member.file, wrong.json),
                StartsWith(std::string(member.pointer) + ": expected " + wrong.expected));
        }
    }
}

TEST(ServiceDataMembers, AreToldByPointerWhenTheyAreMissing)
{
    for (const Needed &needed : needs) {
        EXPECT_EQ(complaintAbout(needed.file, needed.whole), "the data was accepted");
        for (const QString &name : needed.names) {
            QString without = QString::fromUtf8(needed.whole);
            without.replace(u'"' + name + u'"', u"\"\""_s);
            without.remove(QRegularExpression(u",? ?\"\": (\"[^\"]*\"|[0-9]|\\[\\])"_s));
            without.replace(u"{, "_s, u"{"_s);
            EXPECT_EQ(complaintAbout(needed.file, without.toUtf8()),
                needed.pointer + std::string("/") + name.toStdString()
                    + ": expected, but it is missing");
        }
    }
}

/// The names that a complaint about an unknown member lists.
QStringList knownNames(const std::string &complaint)
{
    const QString line = QString::fromStdString(complaint);
    const QString mark = u"unknown member, expected one of "_s;
    return line.mid(line.indexOf(mark) + mark.size()).split(u", "_s);
}

/// What this table does not tell is not tested.
TEST(ServiceDataMembers, AreAllInTheTable)
{
    QSet<QString> told;
    for (const Member &member : members)
        told.insert(QString::fromLatin1(member.pointer));
    int objects = 0;
    const Member root{"", "%", &object};
    std::vector<Member> all(std::begin(members), std::end(members));
    all.push_back(root);
    for (const Member &member : all) {
        if (member.kind != &object || told.contains(QString::fromLatin1(member.pointer) + u"/a"_s))
            continue;
        ++objects;
        const std::string complaint = complaintAbout(member.file, R"({"no such": 1})");
        EXPECT_THAT(
            complaint, StartsWith(std::string(member.pointer) + "/no such: unknown member"));
        for (const QString &name : knownNames(complaint))
            EXPECT_TRUE(told.contains(QString::fromLatin1(member.pointer) + u'/' + name))
                << member.pointer << '/' << qPrintable(name);
    }
    EXPECT_EQ(objects, 18);
}

struct Syntax
{
    const char *json;
    const char *place;
};

TEST(ServiceDataSyntax, IsToldByLineAndColumn)
{
    const Syntax table[] = {{"", "line 1, column 1"}, {"{", "line 1, column 2"},
        {"{\"cards\": [],}", "line 1, column 14"}, {"{\n\n  \"cards\" []\n}", "line 3, column 11"},
        {"// only a comment", "line 1, column 18"}, {"{} {}", "line 1, column 4"},
        {"{\n\t\"ж\": 'a'}", "line 2, column 7"}, {"{\"a\": 01}", "line 1, column 8"},
        {"{\"a\": \"\xff\"}", "line 1, column 8"}, {"{\r\n\"a\": tru}", "line 2, column 9"},
        {"{\n\"a\": -1e999}", "line 2, column 6: the number is too large"},
        {"\xef\xbb\xbf{", "line 1, column"}};
    for (const Syntax &row : table) {
        SCOPED_TRACE(row.json);
        EXPECT_THAT(complaintAbout("%", row.json), StartsWith(row.place));
    }
}

TEST(ServiceDataSyntax, OneHundredLevelsAreReadAndNoMore)
{
    constexpr int most = 100;
    constexpr int farTooMany = 300'000;
    const auto complaint = [](int levels) {
        return complaintAbout("%", QByteArray(levels, '[') + QByteArray(levels, ']'));
    };
    EXPECT_THAT(complaint(most), testing::Not(testing::HasSubstr("nested")));
    EXPECT_EQ(complaint(most + 1), "nested deeper than 100 levels");
    EXPECT_EQ(complaint(farTooMany), "nested deeper than 100 levels");
}

} // namespace
} // namespace emulator

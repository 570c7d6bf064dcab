// Claims about the object of a command.

#include "till/core/cannotdo.h"
#include "till/script/expectation.h"
#include "till/script/words.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

const till::Json &object()
{
    static const till::Json made = till::Json::parse(R"({
        "result": true, "refusal": null, "command": "card 0017", "number": "17",
        "trace": ["event 72", "post", "dialog korvelReturnCoupons"], "codes": [1, 2],
        "document": {"sum": 100.0, "state": "open", "options": [1, 2], "text": "a b",
                     "positions": [{"sumDiscounted": 90.0}, {"sumDiscounted": 10.5}]}})");
    return made;
}

std::optional<QString> failure(const QString &claim)
{
    return till::Expectation(till::splitWords(claim)).failure(object());
}

struct Row
{
    const char *claim;
    bool holds;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.claim;
}

class ExpectationTest : public testing::TestWithParam<Row>
{ };

TEST_P(ExpectationTest, HoldsOrFails)
{
    const auto found = failure(QString::fromUtf8(GetParam().claim));
    EXPECT_EQ(!found.has_value(), GetParam().holds) << GetParam().claim;
}

INSTANTIATE_TEST_SUITE_P(Claims, ExpectationTest,
    testing::Values(Row{"result == true", true}, Row{"result == false", false},
        Row{"result != false", true}, Row{"refusal == null", true}, Row{"refusal absent", true},
        Row{"refusal exists", false}, Row{"refusal.id absent", true},
        Row{"refusal.id exists", false}, Row{"refusal.id == x", false},
        Row{"refusal.id != x", false}, Row{"document exists", true}, Row{"document absent", false},
        Row{"number == 17", true}, Row{"number == 17.0", false},
        Row{"command == \"card 0017\"", true}, Row{"command contains 0017", true},
        Row{"command contains 018", false}, Row{"document.sum == 100", true},
        Row{"document.sum == 100.004", true}, Row{"document.sum == 100.006", false},
        Row{"document.sum != 100.004", false}, Row{"document.sum == x", false},
        Row{"document.sum < 100.004", false}, Row{"document.sum < 100.01", true},
        Row{"document.sum > 99.996", false}, Row{"document.sum > 99.99", true},
        Row{"document.sum > 101", false}, Row{"document.state < 5", false},
        Row{"document.positions[0].sumDiscounted == 90", true},
        Row{"document.positions[1].sumDiscounted == 10.5", true},
        Row{"document.positions[2] absent", true}, Row{"document.positions[2] exists", false},
        Row{"document[0] absent", true}, Row{"trace.x absent", true},
        Row{"document.options == [1,2]", true}, Row{"document.options == [2,1]", false},
        Row{"document.options == [1,2,3]", false}, Row{"codes contains 2", true},
        Row{"codes contains 3", false}, Row{"trace contains post", true},
        Row{"trace contains \"event 72\"", true}, Row{"trace contains korvelReturn", true},
        Row{"trace contains print", false}, Row{"document contains sum", true},
        Row{"document contains total", false}, Row{"trace[0] == 'event 72'", true},
        Row{"document.positions[1] == '{\"sumDiscounted\": 10.504}'", true},
        Row{"document.positions[1] == '{\"sumDiscounted\": 10.5, \"x\": 1}'", false},
        Row{"document.text == 'a b'", true}, Row{"document.state == open", true},
        Row{"document.state != closed", true}));

TEST(ExpectationDepthTest, WhatIsNestedVeryDeepIsATextThatNothingIsEqualTo)
{
    constexpr int many = 100'000;
    const QString deep = QString(many, u'[') + QString(many, u']');
    EXPECT_TRUE(failure(u"codes == "_s + deep).has_value());
    EXPECT_FALSE(failure(u"codes != "_s + deep).has_value());
    EXPECT_TRUE(failure(u"codes contains "_s + deep).has_value());
}

TEST(ExpectationTextTest, AFailureSaysWhatIsThereInstead)
{
    EXPECT_EQ(failure(u"document.sum == 90"_s), u"expected document.sum == 90, but it is 100.0"_s);
    EXPECT_EQ(
        failure(u"document.total == 90"_s), u"expected document.total == 90, but there is none"_s);
}

TEST(BrokenExpectationTest, SaysWhatIsWrong)
{
    const QList<QPair<QString, QString>> rows{{u""_s, u"\"\" is no path"_s},
        {u"a..b == 1"_s, u"\"a..b\" is no path"_s}, {u"a[x] == 1"_s, u"\"a[x]\" is no path"_s},
        {u"[0] == 1"_s, u"\"[0]\" is no path"_s}, {u"a = 1"_s, u"\"=\" is no operator"_s},
        {u"a"_s, u"\"\" is no operator"_s}, {u"a =="_s, u"VALUE is missing"_s},
        {u"a == 1 2"_s, u"\"2\" is one word too many"_s},
        {u"a exists 1"_s, u"\"1\" is one word too many"_s}};
    for (const auto &[claim, reason] : rows) {
        SCOPED_TRACE(qPrintable(claim));
        try {
            const till::Expectation expectation(till::splitWords(claim));
            ADD_FAILURE();
        } catch (const till::CannotDo &error) {
            EXPECT_TRUE(error.text().startsWith(reason + u"; ")) << error.what();
        }
    }
}

} // namespace

// What a cashier sees done and does not do again.

#include "tests/restart/effect.h"

#include <gtest/gtest.h>

namespace restart {

namespace {

using Json = nlohmann::json;

// A document in which everything is there once.
Json document()
{
    return {{"card", {{"number", "29"}}}, {"positions", {{{"number", 1}, {"quantity", 2.0}}}},
        {"coupons", {{{"number", "99"}}}}, {"bonusImpacts", {{{"sum", 5.0}}}},
        {"payments", {{{"kind", "cash"}}}}};
}

// One in which nothing is.
Json bare()
{
    return {{"card", nullptr}, {"positions", Json::array()}, {"coupons", Json::array()},
        {"bonusImpacts", Json::array()}, {"payments", Json::array()}};
}

struct Row
{
    const char *command;
    Json before;
    Json now;
    bool worked;
};

const Row rows[] = {
    {"sale", nullptr, bare(), true},
    {"sale", nullptr, nullptr, false},
    {"return 1", nullptr, bare(), true},
    {"card 29", bare(), document(), true},
    {"card 28", bare(), document(), false},
    {"card 29", nullptr, bare(), false},
    {"card 29", nullptr, nullptr, false},
    {"input 29", bare(), document(), true},
    {"input 99", bare(), document(), true},
    {"input 46", bare(), document(), true},
    {"input 46", document(), document(), false},
    {"input 46", nullptr, nullptr, false},
    {"add 1001", bare(), document(), true},
    {"add 1001", nullptr, document(), true},
    {"add 1001", document(), document(), false},
    {"quantity 1 2", document(), document(), true},
    {"quantity 1 3", document(), document(), false},
    {"quantity 2 2", document(), document(), false},
    {"storno 1", document(), document(), false},
    {"storno 1", document(), bare(), true},
    {"coupon 99", bare(), document(), true},
    {"coupon 98", bare(), document(), false},
    {"coupon 99", nullptr, nullptr, false},
    {"points 5", bare(), document(), true},
    {"points 5", document(), document(), false},
    {"points 5", document(), bare(), false},
    {"pay cash", bare(), document(), true},
    {"pay cash", document(), document(), false},
    {"close", document(), nullptr, true},
    {"close", document(), document(), false},
    {"cancel", document(), nullptr, true},
    {"cancel", document(), document(), false},
    {"total", bare(), document(), false},
    {"deliver", nullptr, nullptr, false},
};

TEST(EffectTest, IsSeenOnTheDocument)
{
    for (const Row &row : rows) {
        const Scenario scenario
            = readScenario(QStringLiteral("one"), QString::fromLatin1(row.command));
        EXPECT_EQ(hasWorked(scenario.commands.front(), row.before, row.now), row.worked)
            << row.command << " from " << row.before << " to " << row.now;
    }
}

} // namespace

} // namespace restart

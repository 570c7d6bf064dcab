#include "common/names.h"
#include "plugin/resultmap.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

using Map = QMap<QString, QVariant>;

struct PresenceRow
{
    const char *name;
    Map map;
    bool present;
};

void PrintTo(const PresenceRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class Presence : public testing::TestWithParam<PresenceRow>
{ };

TEST_P(Presence, IsToldByKeyAndContent)
{
    EXPECT_EQ(resultmap::isPresent(GetParam().map, u"key"_s), GetParam().present);
    EXPECT_EQ(resultmap::messages(GetParam().map, u"key"_s).has_value(), GetParam().present);
}

INSTANTIATE_TEST_SUITE_P(Rows, Presence,
    testing::Values(PresenceRow{"NoKey", {}, false},
        PresenceRow{"Invalid", {{u"key"_s, QVariant()}}, false},
        PresenceRow{"Null", {{u"key"_s, QVariant::fromValue(nullptr)}}, false},
        PresenceRow{"NullText", {{u"key"_s, QString()}}, false},
        PresenceRow{"EmptyText", {{u"key"_s, u""_s}}, true},
        PresenceRow{"Text", {{u"key"_s, u"x"_s}}, true},
        PresenceRow{"EmptyList", {{u"key"_s, QStringList()}}, true},
        PresenceRow{"EmptyListOfVariants", {{u"key"_s, QVariantList()}}, true}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(ResultMap, ATextIsOneMessageAndNothingIsSplit)
{
    EXPECT_EQ(
        resultmap::messages({{u"key"_s, u"a, b;c\nd"_s}}, u"key"_s), QStringList{u"a, b;c\nd"_s});
}

TEST(ResultMap, AListIsItsMessages)
{
    EXPECT_EQ(resultmap::messages({{u"key"_s, QStringList{u"a"_s, u"b"_s}}}, u"key"_s),
        (QStringList{u"a"_s, u"b"_s}));
}

TEST(ResultMap, AmountsAreNumbersOrTheirTexts)
{
    const Map map{{u"text"_s, u"1.5"_s}, {u"number"_s, 2.5}, {u"word"_s, u"x"_s}};
    EXPECT_EQ(resultmap::amount(map, u"text"_s), 1.5);
    EXPECT_EQ(resultmap::amount(map, u"number"_s), 2.5);
    EXPECT_EQ(resultmap::amount(map, u"word"_s), 0.0);
    EXPECT_EQ(resultmap::amount(map, u"absent"_s), 0.0);
}

TEST(ResultMap, EarnedIsWhatIsChargedLessTheStatusPoints)
{
    EXPECT_EQ(resultmap::earned({{korvel::result::activeChargedBonus, u"7.5"_s},
                  {korvel::result::chargedStatusBonus, 2.0}}),
        5.5);
}

TEST(ResultMap, PositionNumbersAreDecimalIntegersOf32Bits)
{
    EXPECT_EQ(resultmap::positionNumber(u"12"_s), 12);
    EXPECT_EQ(resultmap::positionNumber(u"2147483647"_s), 2147483647);
    EXPECT_EQ(resultmap::positionNumber(u"2147483648"_s), 0);
    EXPECT_EQ(resultmap::positionNumber(u"0x10"_s), 0);
    EXPECT_EQ(resultmap::positionNumber(u"abc"_s), 0);
}

} // namespace

#include "till/check/schema.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

TEST(Schema, FindsSettingsByNameAndPattern)
{
    const Schema &schema = Schema::instance();
    const Setting *timeout = schema.find(u"KorvelLoyaltyOnline:timeout"_s);
    ASSERT_TRUE(timeout);
    EXPECT_EQ(timeout->type, ValueType::Integer);
    EXPECT_EQ(timeout->unit, u"seconds"_s);
    EXPECT_EQ(timeout->minimum, 1.0);
    EXPECT_EQ(timeout->defaultValue, u"15"_s);
    EXPECT_EQ(timeout->secret, Secret::None);
    EXPECT_TRUE(schema.find(u"KorvelLoyaltyOnline.ExtendedAttributes.any:key7"_s));
    EXPECT_EQ(schema.find(u"KorvelLoyaltyOnline:password"_s)->secret, Secret::Value);
    EXPECT_EQ(schema.find(u"RestClient:proxy"_s)->secret, Secret::Address);
    EXPECT_FALSE(schema.find(u"KorvelLoyaltyOnline:Timeout"_s));
    EXPECT_FALSE(schema.find(u"Queue:timeout"_s));
    EXPECT_FALSE(schema.find(u""_s));
}

TEST(Schema, KnowsSections)
{
    EXPECT_TRUE(Schema::instance().hasSection(u"Till"_s));
    EXPECT_TRUE(Schema::instance().hasSection(u"KorvelLoyaltyOnline.ExtendedAttributes.price"_s));
    EXPECT_FALSE(Schema::instance().hasSection(u"KorvelLoyaltyOnline.ExtendedAttributes"_s));
    EXPECT_FALSE(Schema::instance().hasSection(u"till"_s));
}

TEST(Schema, TellsEffectsInBothLanguages)
{
    static const QRegularExpression cyrillic(u"[А-Яа-я]"_s);
    EXPECT_GT(Schema::instance().settings().size(), 50);
    for (const Setting &setting : Schema::instance().settings()) {
        SCOPED_TRACE(setting.name().toStdString());
        EXPECT_TRUE(setting.effectRussian.contains(cyrillic));
        EXPECT_FALSE(setting.effectEnglish.isEmpty());
        EXPECT_FALSE(setting.effectEnglish.contains(cyrillic));
        EXPECT_FALSE(setting.example.isEmpty());
        EXPECT_EQ(setting.defaultValue.has_value(), setting.absentRussian.isEmpty());
    }
}

} // namespace

#include "client/couponmessage.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace korvelLoyaltyOnline;
using namespace Qt::Literals::StringLiterals;

TEST(DelimiterTest, EscapesBecomeTheirCharacters)
{
    struct Row
    {
        QString written;
        QString delimiter;
    };
    const QList<Row> rows = {
        {uR"(\u2014\u2014)"_s, u"\u2014\u2014"_s},
        {uR"(a\u00E4b\u00e4)"_s, u"aäbä"_s},
        {u"--"_s, u"--"_s},
        {uR"(\u20g4)"_s, uR"(\u20g4)"_s},
        {uR"(\u201)"_s, uR"(\u201)"_s},
        {uR"(u2014)"_s, uR"(u2014)"_s},
        {uR"(\U2014)"_s, uR"(\U2014)"_s},
        {uR"(\u20145)"_s, u"\u20145"_s},
        {u""_s, u""_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.written.toStdString());
        EXPECT_EQ(unescapedDelimiter(row.written), row.delimiter);
    }
}

TEST(DelimiterTest, TheSearchGoesOnAtTheNumberOfReplacements)
{
    // The backslash that the first escape became stands before that place, so it begins nothing.
    EXPECT_EQ(unescapedDelimiter(uR"(\u005cu2014)"_s), uR"(\u2014)"_s);
    // One character further it stands behind, and does.
    EXPECT_EQ(unescapedDelimiter(uR"(a\u005cu2014)"_s), u"a\u2014"_s);
    EXPECT_EQ(unescapedDelimiter(uR"(a\u005cu005cu2014)"_s), uR"(a\u2014)"_s);
}

TEST(CouponMessageTest, TheTextIsTakenApartAtTheDelimiter)
{
    struct Row
    {
        QString text;
        QString delimiter;
        QString before;
        QStringList coupons;
    };
    const QList<Row> rows = {
        {u" Hello | a1 |b2"_s, u"|"_s, u"Hello"_s, {u" a1 "_s, u"b2"_s}},
        {u" Hello "_s, u"|"_s, u"Hello"_s, {}},
        {u"|a"_s, u"|"_s, u""_s, {u"a"_s}},
        {u"x||a||"_s, u"|"_s, u"x"_s, {u"a"_s}},
        {u"x|"_s, u"|"_s, u"x"_s, {}},
        {u"xABaABb"_s, u"ab"_s, u"xABaABb"_s, {}},
        {u"xabyABzabw"_s, u"ab"_s, u"x"_s, {u"yABz"_s, u"w"_s}},
        {u"x|y"_s, u""_s, u"x|y"_s, {}},
        {u""_s, u"|"_s, u""_s, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        EXPECT_EQ(textBeforeCoupons(row.text, row.delimiter), row.before);
        EXPECT_EQ(textsOfCoupons(row.text, row.delimiter), row.coupons);
    }
}

TEST(CouponMessageTest, ANullTextStaysNullAndAnEmptyOneDoesNotBecomeNull)
{
    EXPECT_TRUE(textBeforeCoupons({}, u"|"_s).isNull());
    EXPECT_FALSE(textBeforeCoupons(u""_s, u"|"_s).isNull());
    EXPECT_FALSE(textBeforeCoupons(u" |x"_s, u"|"_s).isNull());
}

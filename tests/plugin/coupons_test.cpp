#include "host/framework/session.h"
#include "plugin/markdown.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Coupons : public PluginFixture
{
protected:
    Coupons() { givenCurrentDocument(); }
    EContext::Result whenAdded(const QString &number, const QString &scanned)
    {
        return plugin().afterCouponAdd(control::Action(control::EActionType::AddCoupon,
            {{u"couponNumber"_s, number}, {u"rawdata"_s, scanned}}));
    }
    void givenCouponObserver()
    {
        Singleton<DocumentWatcher>::instance()->setCouponObserver(
            [this](const QString &number, const QString &text) {
                seen.append(number + u" as "_s + text);
            });
    }
    QStringList seen;
};

TEST_F(Coupons, RemovingShowsOneNumberPerLineAndThenTakesThemOff)
{
    for (const auto &number : {u"3"_s, u"1"_s, u"2"_s})
        givenCoupon(number);
    givenWhileShown([this] { EXPECT_EQ(document()->getCoupons().size(), 3); });
    plugin().removeCoupons(document());
    thenDialog(u"korvelOnlineInternalErrorBackCoupon"_s,
        u"Нет связи с лояльностью. Верните покупателю купоны: 3\n1\n2"_s);
    EXPECT_FALSE(document()->hasCoupons());
}

TEST_F(Coupons, EachIsPrintedWithItsDataByAPrinterOfItsOwn)
{
    const Map first{{key::couponNumber, u"1"_s}, {key::couponMessage, u"раз"_s}};
    const Map second{{key::couponNumber, u"2"_s}, {key::couponMessage, u"два"_s}};
    plugin().printCoupons({first, second});
    ASSERT_EQ(story().printed.size(), 2);
    EXPECT_EQ(story().printed[0].data, first);
    EXPECT_EQ(story().printed[1].data, second);
    EXPECT_NE(story().printed[0].printer, story().printed[1].printer);
}

TEST_F(Coupons, TheTemplateIsPrintedAsOftenAsThePrinterLikesAndCut)
{
    plugin().printCoupons({Map{}});
    ASSERT_EQ(story().printed.size(), 1);
    EXPECT_EQ(story().printed[0].templateName, u"korvelloyaltyonline_coupon"_s);
    EXPECT_EQ(story().printed[0].text, QString());
    EXPECT_EQ(story().printed[0].copies, -1);
    EXPECT_TRUE(story().printed[0].cut);
}

TEST_F(Coupons, NoCouponsNoPrinter)
{
    plugin().printCoupons({});
    EXPECT_TRUE(story().printers.isEmpty());
}

TEST_F(Coupons, AMarkdownCouponSaysItsPercentage)
{
    const auto coupon = givenCoupon(u"555"_s);
    givenCouponObserver();
    EXPECT_EQ(whenAdded(u"555"_s, u"x-markdown30"_s), EContext::Result::Continue);
    EXPECT_EQ(coupon->getDisplayedNumber(), u"на уценку 30% № 555"_s);
    EXPECT_EQ(seen, QStringList{u"555 as на уценку 30% № 555"_s});
}

TEST_F(Coupons, TheNumberFollowsThePrefixEvenWhenItLooksLikeAPlaceholder)
{
    plugin().markdownCouponPrefix = u"-%1% "_s;
    const auto coupon = givenCoupon(u"%1"_s);
    whenAdded(u"%1"_s, u"MARKDOWN50"_s);
    EXPECT_EQ(coupon->getDisplayedNumber(), u"-50% %1"_s);
}

TEST_F(Coupons, AnOrdinaryCouponKeepsItsNumber)
{
    const auto coupon = givenCoupon(u"555"_s);
    givenCouponObserver();
    EXPECT_EQ(whenAdded(u"555"_s, u"DISCOUNT30"_s), EContext::Result::Continue);
    EXPECT_EQ(coupon->getDisplayedNumber(), u"555"_s);
    EXPECT_TRUE(seen.isEmpty());
}

TEST_F(Coupons, AMarkdownCouponThatIsNotOnTheChequeIsLeftAlone)
{
    const auto coupon = givenCoupon(u"555"_s);
    EXPECT_EQ(whenAdded(u"556"_s, u"MARKDOWN30"_s), EContext::Result::Continue);
    EXPECT_EQ(coupon->getDisplayedNumber(), u"555"_s);
}

TEST_F(Coupons, AnEmptyDeskIsLeftAlone)
{
    Singleton<Session>::instance()->setCurrentDocument({});
    EXPECT_EQ(whenAdded(u"555"_s, u"MARKDOWN30"_s), EContext::Result::Continue);
}

struct PercentageRow
{
    const char *name;
    QString scanned;
    QString expected;
};

void PrintTo(const PercentageRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class MarkdownPercentage : public testing::TestWithParam<PercentageRow>
{ };

TEST_P(MarkdownPercentage, IsReadBehindTheMarker)
{
    EXPECT_EQ(markdown::percentage(GetParam().scanned), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, MarkdownPercentage,
    testing::Values(PercentageRow{"Two", u"MARKDOWN50"_s, u"50"_s},
        PercentageRow{"One", u"MARKDOWN5"_s, u"5"_s},
        PercentageRow{"AtMostThree", u"MARKDOWN1234"_s, u"123"_s},
        PercentageRow{"InsideOtherData", u"2900 markDown07;x9"_s, u"07"_s},
        PercentageRow{"LastMarkerCounts", u"MARKDOWN10MARKDOWN20"_s, u"20"_s},
        PercentageRow{"MarkerWithoutDigitsIsPassedOver", u"MARKDOWN10MARKDOWN"_s, u"10"_s},
        PercentageRow{"NotDirectlyBehind", u"MARKDOWN-50"_s, QString()},
        PercentageRow{"NoMarker", u"50"_s, QString()}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(Markdown, IsMarkedInAnyCaseOfTheLetters)
{
    for (const auto &text : {u"MARKDOWN"_s, u"xmarkdown9"_s, u"MarkDown"_s})
        EXPECT_TRUE(markdown::isMarked(text)) << text.toStdString();
    for (const auto &text : {u"MARK DOWN"_s, u""_s, u"MARKDOW"_s})
        EXPECT_FALSE(markdown::isMarked(text)) << text.toStdString();
}

} // namespace

// Opening documents: event 22, numbers, returns.

#include "host/framework/currenttime.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/frozenclock.h"

using namespace Qt::StringLiterals;

namespace {

class OpeningTest : public TillFixture
{ };

TEST_F(OpeningTest, AnEmptyDeskSendsEvent22BeforeADocumentBecomesCurrent)
{
    bool wasEmpty = false;
    loyalty->behaviour[u"event 22"_s] = [&] { return wasEmpty = document().isNull(); };
    till->start();
    EXPECT_EQ(takeCalls(), QStringList{u"event 22"_s});
    EXPECT_TRUE(wasEmpty);
}

TEST_F(OpeningTest, ASaleCarriesNumberPlaceTimeAndCorrelationId)
{
    till::FrozenClock clock;
    const QDateTime noon = QDateTime::fromString(u"2026-03-01T12:00:00"_s, Qt::ISODate);
    clock.freeze(noon);
    till->openSale();
    const auto sale = till->document();
    EXPECT_EQ(sale->getType(), EDocumentType::Sale);
    EXPECT_EQ(sale->getNumber(), u"17"_s);
    EXPECT_EQ(sale->getShop(), u"7"_s);
    EXPECT_EQ(sale->getTill(), u"3"_s);
    EXPECT_EQ(sale->getOpened(), noon);
    EXPECT_FALSE(sale->getCorrelationId().isEmpty());
}

TEST_F(OpeningTest, AnOpenedSaleIsOnDiskAtOnceAndSendsNothing)
{
    till->openSale();
    EXPECT_TRUE(store->loadOpen());
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(OpeningTest, ANumberIsNotGivenAgainAfterACancel)
{
    till->openSale();
    till->cancel();
    till->openSale();
    EXPECT_EQ(till->document()->getNumber(), u"18"_s);
}

TEST_F(OpeningTest, SaleAndReturnAreErrorsWhileADocumentIsOpen)
{
    till->openSale();
    const QString wanted = u"открыт документ 17; сначала закройте или отмените его"_s;
    EXPECT_EQ(whyNot([&] { till->openSale(); }), wanted);
    EXPECT_EQ(whyNot([&] { till->openReturn(); }), wanted);
    EXPECT_EQ(whyNot([&] { till->openReturnOf(u"1"_s); }), wanted);
}

TEST_F(OpeningTest, AReturnWithoutASaleIsOfType7)
{
    till->openReturn();
    EXPECT_EQ(till->document()->getTypeCode(), 7);
    EXPECT_EQ(till->document()->getReferencedNumber(), QString());
}

TEST_F(OpeningTest, AReturnOfASaleTakesItsPositionsAndRefersToIt)
{
    const QString number = givenClosedSale();
    till->openReturnOf(number);
    const auto made = till->document();
    EXPECT_EQ(made->getTypeCode(), 25);
    EXPECT_EQ(made->getReferencedNumber(), number);
    ASSERT_EQ(made->getGoods().size(), 1);
    EXPECT_EQ(made->getGoods().constFirst()->getCode(), u"1001"_s);
    EXPECT_NE(made->getNumber(), number);
}

TEST_F(OpeningTest, AReturnHasItsOwnCardRecordWithoutOperationIdAndPluginData)
{
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        document()
            ->getCardRecord(ECardMode::OnlineLoyalty)
            ->setOperationInfo(QVariantMap{{u"a"_s, 1}});
        return true;
    };
    till->openReturnOf(givenClosedSale());
    const auto card = till->document()->getCardRecord(ECardMode::OnlineLoyalty);
    ASSERT_TRUE(card);
    EXPECT_EQ(card->getNumber().toString(), u"2900000000017"_s);
    EXPECT_EQ(card->getOperationId(), QString());
    EXPECT_EQ(card->getOperationInfo().toMap().value(u"a"_s), QVariant(1));
    EXPECT_TRUE(till->document()->getStoredValues().isEmpty());
}

TEST_F(OpeningTest, TheSaleItselfKeepsItsOperationId)
{
    const QString number = givenClosedSale();
    till->openReturnOf(number);
    EXPECT_EQ(store->loadClosed(number)->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId(),
        u"T-1"_s);
}

TEST_F(OpeningTest, OnlyClosedSalesCanBeReturned)
{
    till->openReturnOf(givenClosedSale());
    till->close();
    for (const QString &number : {u"18"_s, u"99"_s, u"../document"_s}) {
        SCOPED_TRACE(qPrintable(number));
        EXPECT_TRUE(whyNot([&] {
            till->openReturnOf(number);
        }).startsWith(u"нет закрытого чека продажи "_s + number));
        EXPECT_FALSE(till->document());
    }
}

} // namespace

// Loyalty is switched off at a till: it sells on, and nobody is asked.

#include "host/storage/journal.h"
#include "host/storage/statefolder.h"
#include "tests/till/support/tillfixture.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

class SwitchOffTest : public TillFixture
{
public:
    /// Starts the till with the switch thrown; what it told.
    QStringList givenSwitchedOff()
    {
        till->switchLoyaltyOff(without);
        QStringList told;
        for (const tr::Tr &notice : till->start())
            told.append(notice.id());
        loyalty->calls.clear();
        return told;
    }
    /// The operations that the loyalty system was asked for; events reach every listener.
    QStringList asked() { return takeCalls().filter(QRegularExpression(u"^(?!event)"_s)); }
    static QString idOf(const std::optional<till::Refusal> &refusal)
    {
        return refusal ? refusal->message.id() : QString();
    }
    static QByteArray journal()
    {
        QFile file(Singleton<StateFolder>::instance()->path() + u"/journal.jsonl");
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    till::WithoutLoyalty without;
};

TEST_F(SwitchOffTest, TheStartSaysSoToTheCashierAndToTheJournal)
{
    EXPECT_EQ(givenSwitchedOff(), QStringList{u"tillLoyaltyOff"_s});
    EXPECT_TRUE(till->isLoyaltyOff());
    EXPECT_TRUE(journal().contains("\"kind\":\"loyalty\"")) << journal().toStdString();
    EXPECT_TRUE(journal().contains("\"on\":false"));
}

TEST_F(SwitchOffTest, ATillThatIsNotSwitchedOffSaysNothing)
{
    EXPECT_TRUE(till->start().isEmpty());
    EXPECT_FALSE(till->isLoyaltyOff());
    EXPECT_FALSE(journal().contains("\"kind\":\"loyalty\""));
}

TEST_F(SwitchOffTest, AChequeIsCalculatedAndClosedWithoutAskingAnybody)
{
    givenSwitchedOff();
    till->addPosition({u"1001"_s, 2.0, {}, {}, {}});
    EXPECT_EQ(till->calculate().result, QVariant(true));
    const till::Outcome closed = till->close();
    EXPECT_FALSE(closed.refusal);
    ASSERT_TRUE(closed.left);
    EXPECT_EQ(closed.left->getState(), EDocumentState::Closed);
    EXPECT_DOUBLE_EQ(closed.left->getSumAfterDiscounts(), 91.80);
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(SwitchOffTest, NobodyIsToldThatTheServiceIsAsked)
{
    givenSwitchedOff();
    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    till->calculate();
    till->close();
    EXPECT_FALSE(takeCalls().contains(u"event 72"_s));
}

TEST_F(SwitchOffTest, ACardIsRefusedAndTheChequeGoesOn)
{
    givenSwitchedOff();
    const till::Outcome outcome = till->presentCard(u"2900000000017"_s, ECardNumberType::Keyed);
    EXPECT_EQ(outcome.result, QVariant(false));
    EXPECT_EQ(idOf(outcome.refusal), u"tillLoyaltyOff"_s);
    EXPECT_TRUE(till->document()->getCardRecords().isEmpty());
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(SwitchOffTest, ACouponStaysWithTheCustomer)
{
    givenSwitchedOff();
    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    EXPECT_EQ(idOf(till->addCoupon(u"9900000000018"_s, {}).refusal), u"tillLoyaltyOff"_s);
    EXPECT_EQ(idOf(till->scan(u"9900000000018"_s).refusal), u"tillLoyaltyOff"_s);
    EXPECT_FALSE(till->document()->getCoupon(u"9900000000018"_s));
}

TEST_F(SwitchOffTest, PointsAreNotOffered)
{
    givenSwitchedOff();
    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    const till::Outcome outcome = till->payWithPoints(10.0);
    ASSERT_EQ(outcome.notices.size(), 1);
    EXPECT_EQ(outcome.notices.constFirst().id(), u"tillLoyaltyOff"_s);
}

TEST_F(SwitchOffTest, ACancelledChequeAsksNobodyEither)
{
    givenSwitchedOff();
    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    EXPECT_EQ(till->cancel().result, QVariant(true));
    EXPECT_FALSE(till->document());
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(SwitchOffTest, AReturnOfASaleWithACardSaysThatItsPointsStay)
{
    const QString sold = givenClosedSale();
    givenSwitchedOff();
    const till::Outcome opened = till->openReturnOf(sold);
    ASSERT_EQ(opened.notices.size(), 1);
    EXPECT_EQ(opened.notices.constFirst().id(), u"tillReturnWithoutLoyalty"_s);
    EXPECT_TRUE(till->document()->getCardRecords().isEmpty());
    const till::Outcome closed = till->close();
    ASSERT_TRUE(closed.left);
    EXPECT_EQ(closed.left->getState(), EDocumentState::Closed);
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(SwitchOffTest, AReturnOfASaleWithoutACardSaysNothing)
{
    givenSaleOf({u"1001"_s});
    const QString sold = till->document()->getNumber();
    till->close();
    givenSwitchedOff();
    EXPECT_TRUE(till->openReturnOf(sold).notices.isEmpty());
}

TEST_F(SwitchOffTest, AnOpenChequeWithACardIsFinishedWithLoyaltyAndTheNextOneIsNot)
{
    givenIdentifiedCard();
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(givenSwitchedOff(), QStringList());
    EXPECT_FALSE(till->isLoyaltyOff());
    const till::Outcome closed = till->close();
    EXPECT_EQ(asked().filter(u"hasPointsForEarn"_s).size(), 1);
    ASSERT_FALSE(closed.notices.isEmpty());
    EXPECT_EQ(closed.notices.constFirst().id(), u"tillLoyaltyOff"_s);
    EXPECT_TRUE(till->isLoyaltyOff());
    EXPECT_TRUE(journal().contains("\"kind\":\"loyalty\""));

    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    till->close();
    EXPECT_EQ(asked(), QStringList());
}

TEST_F(SwitchOffTest, AnOpenChequeWithoutACardGoesOnWithoutLoyaltyAtOnce)
{
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(givenSwitchedOff(), QStringList{u"tillLoyaltyOff"_s});
    till->close();
    EXPECT_EQ(asked(), QStringList());
}

} // namespace

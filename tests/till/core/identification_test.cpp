// A card is presented.

#include "host/framework/basicexception.h"
#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString number = u"2900000000017"_s;
const QString other = u"2900000000024"_s;

class IdentificationTest : public TillFixture
{
public:
    till::Outcome whenPresented(const QString &card)
    {
        return till->presentCard(card, ECardNumberType::Keyed);
    }
    QString attached() const { return till->document()->getCardNumber(); }
};

TEST_F(IdentificationTest, TheFirstCardOpensASale)
{
    const auto outcome = whenPresented(number);
    EXPECT_EQ(till->document()->getType(), EDocumentType::Sale);
    EXPECT_EQ(outcome.result, QVariant(true));
    EXPECT_FALSE(outcome.refusal);
}

TEST_F(IdentificationTest, TheRecordHasTheSystemsCardModeAndIsNotAttachedYet)
{
    bool wasAttached = true;
    loyalty->behaviour[u"identifyByCard"_s] = [&] {
        wasAttached = !document()->getCardRecords().isEmpty();
        return true;
    };
    whenPresented(number);
    EXPECT_FALSE(wasAttached);
    EXPECT_EQ(loyalty->presented->getCardMode(), ECardMode::OnlineLoyalty);
    EXPECT_EQ(loyalty->presentedHow, ECardNumberType::Keyed);
    EXPECT_EQ(attached(), number);
}

TEST_F(IdentificationTest, IdentificationIsNotAnnounced)
{
    whenPresented(number);
    EXPECT_EQ(takeCalls(), QStringList{u"identifyByCard"_s});
}

TEST_F(IdentificationTest, ARefusedCardIsNotAttached)
{
    loyalty->refuseWith(u"korvelCardBlocked"_s, u"Карта заблокирована"_s, true);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    const auto outcome = whenPresented(number);
    EXPECT_EQ(outcome.result, QVariant(false));
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.id(), u"korvelCardBlocked"_s);
    EXPECT_TRUE(outcome.refusal->flag);
    EXPECT_EQ(attached(), QString());
}

TEST_F(IdentificationTest, ASecondCardReplacesTheFirstOnlyWhenItIsAccepted)
{
    whenPresented(number);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    whenPresented(other);
    EXPECT_EQ(attached(), number);
    loyalty->behaviour.clear();
    whenPresented(other);
    EXPECT_EQ(attached(), other);
    EXPECT_EQ(till->document()->getCardRecords().size(), 1);
}

TEST_F(IdentificationTest, ASecondCardIsAnErrorOnceTheChequeIsRegistered)
{
    whenPresented(number);
    loyalty->presented->setOperationId(u"T-1"_s);
    EXPECT_TRUE(whyNot([&] { whenPresented(other); }).startsWith(u"чек зарегистрирован"));
    EXPECT_EQ(attached(), number);
}

TEST_F(IdentificationTest, ASecondCardIsAnErrorOncePointsArePaid)
{
    whenPresented(number);
    givenSaleOf({u"1001"_s});
    loyalty->setAvailablePoints(10.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 10.0);
        return true;
    };
    till->payWithPoints(std::nullopt);
    EXPECT_TRUE(
        whyNot([&] { whenPresented(other); }).startsWith(u"чек оплачен баллами другой карты"));
}

TEST_F(IdentificationTest, AnExceptionIsARefusalAndTheSaleGoesOn)
{
    loyalty->behaviour[u"identifyByCard"_s]
        = []() -> bool { throw BasicException(tr::Tr(u"broken"_s, u"Сбой"_s)); };
    const auto outcome = whenPresented(number);
    EXPECT_FALSE(outcome.result.isValid());
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.ru(), u"Сбой"_s);
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(till->document()->getGoods().size(), 1);
}

TEST_F(IdentificationTest, AnAcceptedCardIsOnDisk)
{
    whenPresented(number);
    EXPECT_EQ(store->loadOpen()->getCardNumber(), number);
}

} // namespace

// Cash and cards.

#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;
using till::PaymentKind;

namespace {

class PaymentsTest : public TillFixture
{
public:
    PaymentsTest() { givenSaleOf({u"1002"_s}); }
    Payment payment(int index) const { return till->document()->getPayments().value(index); }
};

TEST_F(PaymentsTest, WithoutAnAmountTheRestIsPaid)
{
    till->pay(PaymentKind::Card, 30.0);
    till->pay(PaymentKind::Cash, std::nullopt);
    EXPECT_EQ(payment(0).kind, u"card"_s);
    EXPECT_DOUBLE_EQ(payment(0).amount, 30.0);
    EXPECT_EQ(payment(1).kind, u"cash"_s);
    EXPECT_DOUBLE_EQ(payment(1).amount, 70.0);
    EXPECT_DOUBLE_EQ(till->rest(), 0.0);
}

TEST_F(PaymentsTest, ACardPaysNoMoreThanTheRest)
{
    EXPECT_EQ(whyNot([&] { till->pay(PaymentKind::Card, 100.01); }),
        u"картой можно оплатить не больше 100.00; оплатите картой только остаток"_s);
}

TEST_F(PaymentsTest, CashMayBeMoreThanTheRest)
{
    till->pay(PaymentKind::Cash, 500.0);
    EXPECT_DOUBLE_EQ(till->rest(), 0.0);
}

TEST_F(PaymentsTest, NothingIsPaidTwice)
{
    till->pay(PaymentKind::Cash, std::nullopt);
    EXPECT_TRUE(
        whyNot([&] { till->pay(PaymentKind::Cash, 1.0); }).startsWith(u"оплачивать больше нечего"));
}

TEST_F(PaymentsTest, AnEmptyDeskTakesNoMoney)
{
    till->cancel();
    EXPECT_TRUE(
        whyNot([&] { till->pay(PaymentKind::Cash, 1.0); }).startsWith(u"нет открытого документа"));
    EXPECT_DOUBLE_EQ(till->rest(), 0.0);
}

TEST_F(PaymentsTest, APaymentIsOnDisk)
{
    till->pay(PaymentKind::Cash, 30.0);
    EXPECT_EQ(store->loadOpen()->getPayments().size(), 1);
}

} // namespace

// The rules of a document: numbers of positions, card records, kinds of operations.

#include "host/documents/abstractdocument.h"
#include "tests/support/hostfixture.h"

#include <gtest/gtest.h>

namespace {

class DocumentTest : public testing::Test, public HostFixture
{
protected:
    DocumentTest() { givenCurrentDocument(); }

    static QSharedPointer<DocumentCardRecord> makeOtherCard(const QString &number)
    {
        const auto card = QSharedPointer<Card>::create();
        card->setNumber(number);
        return QSharedPointer<DocumentCardRecord>::create(card);
    }
};

TEST_F(DocumentTest, NumberOfARemovedPositionIsNotGivenAgain)
{
    givenPosition(QStringLiteral("1001"), 10);
    givenPosition(QStringLiteral("1002"), 20);
    document()->removePosition(2);
    EXPECT_EQ(givenPosition(QStringLiteral("1003"), 30)->getPosnum(), 3);
    EXPECT_TRUE(document()->getPosition(2).isNull());
}

TEST_F(DocumentTest, FindsAPositionByItsNumber)
{
    givenPosition(QStringLiteral("1001"), 10);
    const auto second = givenPosition(QStringLiteral("1002"), 20);
    EXPECT_EQ(document()->getPosition(2), second);
    EXPECT_TRUE(document()->getPosition(7).isNull());
}

TEST_F(DocumentTest, SumsAreThoseOfAllPositions)
{
    givenPosition(QStringLiteral("1001"), 45.9, 2);
    givenPosition(QStringLiteral("1002"), 10)->setSumb(7.5);
    EXPECT_DOUBLE_EQ(document()->getSumBeforeDiscounts(), 101.8);
    EXPECT_DOUBLE_EQ(document()->getSumAfterDiscounts(), 99.3);
}

TEST_F(DocumentTest, RefreshComputesTheSumsAnew)
{
    const auto position = givenPosition(QStringLiteral("1001"), 10);
    position->setBquant(3);
    document()->refresh();
    EXPECT_DOUBLE_EQ(document()->getSumAfterDiscounts(), 30);
}

TEST_F(DocumentTest, SecondCardOfAModeReplacesTheFirst)
{
    givenCard(QStringLiteral("2901"));
    const auto second = givenCard(QStringLiteral("2902"));
    EXPECT_EQ(document()->getCardRecords().size(), 1);
    EXPECT_EQ(document()->getCardRecord(ECardMode::OnlineLoyalty), second);
    EXPECT_EQ(document()->getCardNumber(), QStringLiteral("2902"));
}

TEST_F(DocumentTest, CardsOfOtherModesStay)
{
    const auto other = makeOtherCard(QStringLiteral("77"));
    document()->addCardRecord(other);
    givenCard(QStringLiteral("2901"));
    EXPECT_EQ(document()->getCardRecord(ECardMode::None), other);
    EXPECT_EQ(document()->getCardNumber(), QStringLiteral("2901"));
}

TEST_F(DocumentTest, CardRecordsAreNumberedFromOneAndAReplacementTakesTheNumberOver)
{
    const auto first = makeOtherCard(QStringLiteral("77"));
    document()->addCardRecord(first);
    EXPECT_EQ(givenCard()->getCodeInternal(), 2);
    const auto replacement = makeOtherCard(QStringLiteral("78"));
    document()->addCardRecord(replacement);
    EXPECT_EQ(first->getCodeInternal(), 1);
    EXPECT_EQ(replacement->getCodeInternal(), 1);
    EXPECT_EQ(document()->getCardRecord(ECardMode::None), replacement);
}

TEST_F(DocumentTest, WithoutALoyaltyCardTheCardNumberIsEmpty)
{
    EXPECT_TRUE(document()->getCardNumber().isEmpty());
    EXPECT_TRUE(document()->getCardRecord(ECardMode::OnlineLoyalty).isNull());
}

TEST_F(DocumentTest, CouponsAreFoundAndRemovedByNumber)
{
    const auto first = givenCoupon(QStringLiteral("9901"));
    const auto second = givenCoupon(QStringLiteral("9902"));
    EXPECT_EQ(document()->getCoupon(QStringLiteral("9902")), second);
    document()->removeCoupon(first);
    EXPECT_TRUE(document()->getCoupon(QStringLiteral("9901")).isNull());
    EXPECT_TRUE(document()->hasCoupons());
    document()->removeCoupons();
    EXPECT_FALSE(document()->hasCoupons());
}

TEST_F(DocumentTest, StoredValuesBelongToTheirGroup)
{
    document()->setStoredValue(QStringLiteral("one"), QStringLiteral("key"), 1);
    document()->setStoredValue(QStringLiteral("two"), QStringLiteral("key"), 2);
    document()->removeStoredValues(QStringLiteral("one"));
    EXPECT_EQ(document()->getStoredValue(QStringLiteral("one"), QStringLiteral("key"), 7), 7);
    EXPECT_EQ(document()->getStoredValue(QStringLiteral("two"), QStringLiteral("key"), 7), 2);
}

struct OperationCase
{
    EDocumentType type;
    EDocumentType asked;
    EOperationKind askedKind;
    EOperationKind kind;
    bool expected;
};

constexpr auto back = EOperationKind::GoodsComeBack;
constexpr auto leave = EOperationKind::GoodsLeave;

const OperationCase operationCases[]{
    {EDocumentType::Sale, EDocumentType::ReturnOfSale, back, back, false},
    {EDocumentType::ReturnOfSale, EDocumentType::ReturnOfSale, back, back, true},
    {EDocumentType::ReturnWithoutSale, EDocumentType::ReturnOfSale, back, back, true},
    {EDocumentType::ReturnWithoutSale, EDocumentType::ReturnOfSale, back, leave, false},
    {EDocumentType::Correction, EDocumentType::ReturnOfSale, back, back, false},
    {EDocumentType::Sale, EDocumentType::Sale, back, back, true},
    {EDocumentType::Sale, EDocumentType::ReturnOfSale, leave, leave, true},
};

TEST(DocumentOperationTest, IsTheTypeAskedForOrGoesTheWayAskedFor)
{
    for (const OperationCase &row : operationCases) {
        SCOPED_TRACE(static_cast<int>(row.type));
        const AbstractDocument document(row.type, QStringLiteral("1"));
        EXPECT_EQ(document.isOperation({row.asked, row.askedKind}, row.kind), row.expected);
    }
}

} // namespace

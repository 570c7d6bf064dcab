// Copies for sending carry everything that is sent, and nothing of them leads back.

#include "host/documents/documentfactory.h"
#include "tests/support/hostfixture.h"

#include <gtest/gtest.h>

namespace {

class DocumentFactoryTest : public testing::Test, public HostFixture
{
protected:
    DocumentFactoryTest()
    {
        givenCurrentDocument(EDocumentType::ReturnOfSale, QStringLiteral("23"));
        document()->setPlace(QStringLiteral("5"), QStringLiteral("2"));
        document()->setReferencedNumber(QStringLiteral("17"));
        document()->setCorrelationId(QStringLiteral("id"));
        document()->setStoredValue(QStringLiteral("group"), QStringLiteral("key"), 1.5);
        givenPosition(QStringLiteral("1001"), 45.9, 2)->setSumb(80);
        givenCoupon(QStringLiteral("9901"))->setDisplayedNumber(QStringLiteral("shown"));
        const auto card = givenCard();
        card->setOperationId(QStringLiteral("T1"));
        card->setOperationInfo(QVariantMap{{QStringLiteral("TransactionDate"), QDate()}});
    }
    void whenMade() { made = Singleton<DocumentFactory>::instance()->makeDocument(document()); }

    QSharedPointer<AbstractDocument> made;
};

TEST_F(DocumentFactoryTest, CopyIsTheSameDocument)
{
    whenMade();
    EXPECT_EQ(made->getType(), EDocumentType::ReturnOfSale);
    EXPECT_EQ(made->getNumber(), QStringLiteral("23"));
    EXPECT_EQ(made->getShop(), QStringLiteral("5"));
    EXPECT_EQ(made->getTill(), QStringLiteral("2"));
    EXPECT_EQ(made->getReferencedNumber(), QStringLiteral("17"));
    EXPECT_EQ(made->getCorrelationId(), QStringLiteral("id"));
    EXPECT_EQ(made->getStoredValues(), document()->getStoredValues());
}

TEST_F(DocumentFactoryTest, CopyHasPositionsWithTheirSums)
{
    whenMade();
    ASSERT_EQ(made->getGoods().size(), 1);
    EXPECT_DOUBLE_EQ(made->getGoods().first()->getSumn(), 91.8);
    EXPECT_DOUBLE_EQ(made->getGoods().first()->getSumb(), 80);
    EXPECT_EQ(made->takeNextPosnum(), 2);
}

TEST_F(DocumentFactoryTest, CopyHasTheCardWithItsOperation)
{
    whenMade();
    const auto card = made->getCardRecord(ECardMode::OnlineLoyalty);
    ASSERT_FALSE(card.isNull());
    EXPECT_EQ(card->getOperationId(), QStringLiteral("T1"));
    EXPECT_TRUE(card->getOperationInfo().toMap().contains(QStringLiteral("TransactionDate")));
    EXPECT_EQ(card->getCodeInternal(), 1);
}

TEST_F(DocumentFactoryTest, CopyHasTheCouponsAsTheyAreShown)
{
    whenMade();
    ASSERT_EQ(made->getCoupons().size(), 1);
    EXPECT_EQ(made->getCoupons().first()->getDisplayedNumber(), QStringLiteral("shown"));
}

TEST_F(DocumentFactoryTest, ChangingTheCopyLeavesTheOriginal)
{
    whenMade();
    made->getGoods().first()->setSumb(1);
    made->getCoupons().first()->setDisplayedNumber({});
    made->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId({});
    made->removeStoredValues(QStringLiteral("group"));
    EXPECT_DOUBLE_EQ(document()->getGoods().first()->getSumb(), 80);
    EXPECT_EQ(document()->getCoupons().first()->getDisplayedNumber(), QStringLiteral("shown"));
    EXPECT_EQ(document()->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId(),
        QStringLiteral("T1"));
    EXPECT_FALSE(document()->getStoredValues().isEmpty());
}

} // namespace

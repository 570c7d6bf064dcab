#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Rollback : public PluginFixture
{
protected:
    void givenRegisteredSale(EDocumentType type = EDocumentType::Sale)
    {
        givenCurrentDocument(type);
        card = givenCard();
        card->setOperationId(u"T1"_s);
        card->setOperationInfo(Map{{u"TransactionDate"_s, QDate(2026, 3, 14)}});
        card->setPointsForSpend(5.0);
        card->setPointsForEarn(6.0);
        givenStored(korvel::plugindata::pointsForSpend, 5.0);
        plugin().notUseStickers = true;
    }
    bool whenRolledBack() { return plugin().rollback(document()); }

    QSharedPointer<DocumentCardRecord> card;
};

TEST_F(Rollback, ARegisteredChequeIsUndoneAndForgotten)
{
    givenRegisteredSale();
    EXPECT_TRUE(whenRolledBack());
    thenSteps({u"rollback operation"_s, u"rollback"_s, u"save 17"_s, u"clearLoyaltyData"_s});
    EXPECT_EQ(client().requests.first().document, document());
    EXPECT_TRUE(document()->getStoredValues().isEmpty());
    EXPECT_FALSE(plugin().notUseStickers);
    thenLogged(u"INFO"_s, u"Отмена операций в бонусной системе Korvel Loyalty Online"_s);
}

TEST_F(Rollback, TheCardLosesTheRegistrationAndTakesTheBalanceAsItStands)
{
    givenRegisteredSale();
    givenAnswer({{key::cardNormalActiveBalance, u"77.10"_s}});
    whenRolledBack();
    EXPECT_EQ(card->getPointsForSpend(), 0.0);
    EXPECT_FALSE(card->getPointsForEarn().isValid());
    EXPECT_EQ(card->getOperationId(), QString());
    EXPECT_FALSE(card->getOperationInfo().isValid());
    EXPECT_EQ(card->getBonusBalance(), QVariant(u"77.10"_s));
}

TEST_F(Rollback, TheStoredValuesAreGoneWhenTheDocumentIsSaved)
{
    givenRegisteredSale();
    whenRolledBack();
    ASSERT_EQ(story().saved.size(), 1);
    EXPECT_TRUE(story().saved.first().isEmpty());
    EXPECT_EQ(story().savedFileNames, QStringList{QString()});
}

TEST_F(Rollback, AnUnregisteredChequeIsOnlyForgotten)
{
    givenRegisteredSale();
    card->setOperationId(QString());
    EXPECT_TRUE(whenRolledBack());
    thenSteps({u"rollback operation"_s, u"save 17"_s, u"clearLoyaltyData"_s});
    EXPECT_EQ(card->getPointsForSpend(), 5.0);
}

TEST_F(Rollback, AChequeWithoutACardIsOnlyForgotten)
{
    givenCurrentDocument();
    EXPECT_TRUE(whenRolledBack());
    thenSteps({u"rollback operation"_s, u"save 17"_s, u"clearLoyaltyData"_s});
}

TEST_F(Rollback, OfflineNothingIsForgotten)
{
    givenRegisteredSale();
    plugin().offlineMode = true;
    EXPECT_TRUE(whenRolledBack());
    thenSteps({u"rollback operation"_s});
    EXPECT_TRUE(plugin().notUseStickers);
    EXPECT_FALSE(document()->getStoredValues().isEmpty());
    thenLogged(u"INFO"_s, u"Отмена операций в бонусной системе Korvel Loyalty Online"_s);
}

TEST_F(Rollback, ACorrectionIsNotSaved)
{
    givenRegisteredSale(static_cast<EDocumentType>(5));
    EXPECT_TRUE(whenRolledBack());
    thenSteps({u"rollback operation"_s, u"rollback"_s, u"clearLoyaltyData"_s});
    EXPECT_TRUE(document()->getStoredValues().isEmpty());
}

template <typename Exception> class RefusedRollback : public Rollback
{ };

using Refusals
    = testing::Types<KorvelException, KorvelNoConnectionException, KorvelInternalErrorException>;
TYPED_TEST_SUITE(RefusedRollback, Refusals);

TYPED_TEST(RefusedRollback, KeepsTheStateAndLeavesItsReason)
{
    this->givenRegisteredSale();
    this->template givenFailure<TypeParam>(u"нельзя"_s);
    EXPECT_FALSE(this->whenRolledBack());
    this->thenSteps({u"rollback operation"_s, u"rollback"_s});
    this->thenLastError(u"нельзя"_s);
    EXPECT_EQ(this->card->getOperationId(), u"T1"_s);
    EXPECT_FALSE(this->document()->getStoredValues().isEmpty());
    EXPECT_FALSE(this->plugin().offlineMode);
}

TEST_F(Rollback, OtherExceptionsPassToTheHost)
{
    givenRegisteredSale();
    givenThrown(BasicException(tr::Tr(tr::undefined, u"касса"_s)));
    EXPECT_THROW(whenRolledBack(), BasicException);
    EXPECT_TRUE(plugin().notUseStickers);
}

} // namespace

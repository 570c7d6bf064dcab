#include "host/framework/session.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Points : public PluginFixture
{
protected:
    Points()
    {
        givenSaleWithCard();
        plugin().m_pointsForSpend = 80.0;
        plugin().setPointsForSpend(document(), 50.0);
    }
    bool whenSpent() { return plugin().spendPoints(); }
    double paidByBonus() const { return chequeData().value(key::paidByBonus).toDouble(); }
    static Map payment()
    {
        return {{key::positions, Map{{u"1"_s, Map{{key::writeoffBonus, 50.0}}}}}};
    }
};

TEST_F(Points, AvailableAndChosenPointsAreTwoThings)
{
    EXPECT_EQ(plugin().getPointsForSpend(document()), 80.0);
    EXPECT_EQ(plugin().m_pointsToSpend, 50.0);
    thenNothingHappened();
}

TEST_F(Points, APaymentGoesThroughItsStepsInOrder)
{
    givenAnswer(payment());
    EXPECT_TRUE(whenSpent());
    thenSteps({u"sale Soft"_s, u"fillChequeData"_s, u"fillPositionsData"_s, u"save 17"_s});
    EXPECT_EQ(plugin().getBonusImpactsForSpend().size(), 1);
    EXPECT_EQ(story().savedFileNames, QStringList{QString()});
    EXPECT_EQ(client().requests.first().document, document());
}

TEST_F(Points, TheRequestCarriesThePaymentAndTheLogNamesIt)
{
    whenSpent();
    EXPECT_EQ(client().requests.first().chequeData.value(key::paidByBonus), QVariant(50.0));
    EXPECT_EQ(paidByBonus(), 50.0);
    thenLogged(u"INFO"_s,
        u"Создание оплаты бонусами в виде скидки на сумму 50.00, по карте 2900000000017"_s);
}

TEST_F(Points, NothingChosenMeansAllThatIsAvailable)
{
    for (const double chosen : {0.0, 0.004, -0.004}) {
        plugin().setPointsForSpend(document(), chosen);
        whenSpent();
        EXPECT_EQ(plugin().m_pointsToSpend, 80.0);
        EXPECT_EQ(paidByBonus(), 80.0);
    }
}

TEST_F(Points, FromTheToleranceOnTheChosenPointsCount)
{
    plugin().setPointsForSpend(document(), 0.005);
    whenSpent();
    EXPECT_EQ(paidByBonus(), 0.005);
}

TEST_F(Points, DiscountsAreForgottenAndNotFilledAgain)
{
    plugin().m_discountImpacts.append(
        QSharedPointer<DiscountImpact>::create(QSharedPointer<DocumentImpactDetail>::create()));
    givenAnswer({{key::discount, 5.0}});
    whenSpent();
    EXPECT_TRUE(plugin().getDiscountImpacts().isEmpty());
}

TEST_F(Points, WithoutACardNothingIsPaid)
{
    givenCurrentDocument();
    EXPECT_FALSE(whenSpent());
    thenNothingHappened();
}

TEST_F(Points, DeclinedStickersStayOutOfTheNewAnswer)
{
    plugin().notUseStickers = true;
    const Map attributes{{u"Interchange"_s, u"{}"_s}, {u"color"_s, u"red"_s}};
    givenAnswer({{key::positions, Map{{u"1"_s, Map{{key::extendedAttributes, attributes}}}}}});
    whenSpent();
    thenSteps({u"sale Soft"_s, u"fillChequeData"_s, u"fillPositionsData"_s,
        u"removeStickersActions"_s, u"save 17"_s});
    const Map position = stored(korvel::plugindata::positionsData).toMap().value(u"1"_s).toMap();
    EXPECT_EQ(position.value(key::extendedAttributes).toMap(), (Map{{u"color"_s, u"red"_s}}));
}

TEST_F(Points, MessagesReplaceThoseOfTheLastAnswer)
{
    givenAnswer({{key::cashierMessage, u"кассиру"_s}, {key::chequeMessage, u"на чек"_s}});
    whenSpent();
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"кассиру"_s});
    EXPECT_EQ(plugin().getMessagesToClient(), QStringList{u"на чек"_s});
}

TEST_F(Points, AMissingMessageKeepsThoseOfTheLastAnswer)
{
    plugin().m_messagesToCashier = {u"прежнее"_s};
    givenAnswer({{key::cashierMessage, QString()}});
    whenSpent();
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"прежнее"_s});
}

TEST_F(Points, TooFewPointsRefuseAndShowWhatIsLeft)
{
    givenAnswer({{key::availablePayment, u"12.5"_s}, {key::cardNormalActiveBalance, u"20.1"_s},
                    {key::summ, 100.0}},
        true);
    EXPECT_FALSE(whenSpent());
    thenSteps({u"sale Soft"_s, u"fillChequeData"_s, u"fillPositionsData"_s, u"save 17"_s});
    thenLastError(u"Доступных баллов недостаточно для оплаты"_s);
    EXPECT_EQ(plugin().getLastErrorString().id(), u"korvelInsufficientBonusBalance"_s);
    EXPECT_EQ(plugin().getPointsForSpend(document()), 12.5);
    EXPECT_EQ(stored(korvel::plugindata::pointsForSpend), QVariant(12.5));
    EXPECT_EQ(plugin().getCard()->getBonusBalance(), QVariant(20.1));
    EXPECT_EQ(plugin().getCard()->getPointsForSpend(), 12.5);
}

TEST_F(Points, TooFewPointsKeepTheNewTotalsWithoutThePayment)
{
    givenAnswer({{key::summ, 100.0}}, true);
    whenSpent();
    EXPECT_EQ(paidByBonus(), 0.0);
    EXPECT_EQ(chequeData().value(key::summ), QVariant(100.0));
    EXPECT_TRUE(plugin().getBonusImpactsForSpend().isEmpty());
}

/// Tells when it brings itself up to date.
class RefreshedDocument : public AbstractDocument
{
public:
    using AbstractDocument::AbstractDocument;
    void refresh() override { ++refreshes; }
    int refreshes = 0;
};

TEST_F(Points, TooFewPointsRefreshTheDocument)
{
    const auto refreshed = QSharedPointer<RefreshedDocument>::create(EDocumentType::Sale, u"18"_s);
    Singleton<Session>::instance()->setCurrentDocument(refreshed);
    givenCard();
    givenAnswer({}, true);
    whenSpent();
    EXPECT_EQ(refreshed->refreshes, 1);
}

TEST_F(Points, AnInternalErrorTakesEverythingOffAndGoesOffline)
{
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    EXPECT_TRUE(whenSpent());
    thenSteps({u"sale Soft"_s, u"dialog korvelOnlineInternalError"_s, u"rollback operation"_s,
        u"save 17"_s, u"clearLoyaltyData"_s, u"cancel operation"_s, u"process 2"_s,
        u"setOfflineMode"_s, u"save 17"_s});
    thenLogged(u"ERROR"_s, u"сбой"_s);
    EXPECT_EQ(paidByBonus(), 0.0);
    EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
}

TEST_F(Points, AnInternalErrorWithCouponsHandsThemBack)
{
    givenCoupon(u"A"_s);
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    EXPECT_TRUE(whenSpent());
    thenDialog(u"korvelOnlineInternalErrorBackCoupon"_s,
        u"Нет связи с лояльностью. Верните покупателю купоны: A"_s);
}

TEST_F(Points, ALostConnectionGoesOfflineWithoutPoints)
{
    givenCoupon(u"A"_s);
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    EXPECT_TRUE(whenSpent());
    thenSteps({u"sale Soft"_s, u"dialog korvelNoConnection"_s, u"setOfflineMode"_s, u"save 17"_s});
    EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
    EXPECT_EQ(plugin().m_pointsToSpend, 0.0);
    EXPECT_EQ(stored(korvel::plugindata::pointsForSpend), QVariant(0.0));
    EXPECT_EQ(paidByBonus(), 0.0);
    EXPECT_TRUE(document()->hasCoupons());
}

TEST_F(Points, ARefusalLeavesItsReasonAndNoPayment)
{
    givenFailure<KorvelException>(u"Списание запрещено"_s);
    EXPECT_FALSE(whenSpent());
    thenSteps({u"sale Soft"_s});
    thenLastError(u"Списание запрещено"_s);
    EXPECT_EQ(paidByBonus(), 0.0);
    EXPECT_TRUE(chequeData().contains(key::paidByBonus));
}

TEST_F(Points, OtherExceptionsPassToTheHost)
{
    givenThrown(BasicException(tr::Tr(tr::undefined, u"касса"_s)));
    EXPECT_THROW(whenSpent(), BasicException);
}

} // namespace

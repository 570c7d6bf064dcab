#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class CardIdentification : public PluginFixture
{
protected:
    CardIdentification() { givenCurrentDocument(); }
    bool whenPresented() { return plugin().identifyByCard(card, ECardNumberType::Scanned); }

    QSharedPointer<DocumentCardRecord> card = makeCard(u"2900000000017"_s);
};

TEST_F(CardIdentification, AnAcceptedCardCarriesTheAnswer)
{
    givenAnswer({{korvel::result::cardNormalActiveBalance, u"120.50"_s}});
    EXPECT_TRUE(whenPresented());
    thenSteps({u"balance 2900000000017"_s});
    EXPECT_EQ(card->getBonusBalance(), QVariant(u"120.50"_s));
    thenLogged(u"INFO"_s, u"Получение информации о карте"_s);
}

TEST_F(CardIdentification, OfflineNothingIsSentAndTheCardIsAccepted)
{
    plugin().offlineMode = true;
    EXPECT_TRUE(whenPresented());
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Получение информации о карте"_s);
}

TEST_F(CardIdentification, ALostConnectionKeepsTheCardAndGoesOffline)
{
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    EXPECT_TRUE(whenPresented());
    thenSteps({u"balance 2900000000017"_s, u"dialog korvelNoConnection"_s, u"setOfflineMode"_s,
        u"save 17"_s});
    EXPECT_EQ(card->getBonusBalance(), QVariant(0.0));
    EXPECT_TRUE(plugin().offlineMode);
}

TEST_F(CardIdentification, AnInternalErrorIsHandledLikeALostConnection)
{
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    EXPECT_TRUE(whenPresented());
    thenSteps({u"balance 2900000000017"_s, u"dialog korvelNoConnection"_s, u"setOfflineMode"_s,
        u"save 17"_s});
    EXPECT_TRUE(plugin().offlineMode);
}

TEST_F(CardIdentification, ALostConnectionReplacesTheStoredChequeData)
{
    givenStored(korvel::plugindata::chequeData, Map{{korvel::result::summ, 10.0}});
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    whenPresented();
    EXPECT_EQ(chequeData(), (Map{{korvel::result::paidByBonus, 0.0}}));
}

TEST_F(CardIdentification, TheChequeDataIsThereBeforeTheCashierReads)
{
    givenWhileShown([this] {
        EXPECT_EQ(chequeData(), (Map{{korvel::result::paidByBonus, 0.0}}));
        EXPECT_EQ(card->getBonusBalance(), QVariant(0.0));
        EXPECT_FALSE(plugin().offlineMode);
    });
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    whenPresented();
    EXPECT_EQ(story().dialogs.size(), 1);
}

TEST_F(CardIdentification, TheMessageOfALostConnection)
{
    plugin().showNoConnection();
    thenDialog(u"korvelNoConnection"_s,
        u"Нет связи с сервером. Возможные операции с баллами будут выполнены позднее"_s);
    thenSteps({u"dialog korvelNoConnection"_s});
}

TEST_F(CardIdentification, ARefusedCardLeavesItsReason)
{
    givenFailure<KorvelException>(u"Карта заблокирована"_s);
    EXPECT_FALSE(whenPresented());
    thenSteps({u"balance 2900000000017"_s});
    thenLastError(u"Карта заблокирована"_s);
    EXPECT_FALSE(plugin().offlineMode);
}

TEST_F(CardIdentification, TheFlagOfTheRefusalComesAlong)
{
    for (const bool flag : {true, false}) {
        KorvelException refusal(tr::Tr(tr::undefined, u"нельзя"_s));
        refusal.setFlag(flag);
        givenThrown(refusal);
        whenPresented();
        EXPECT_EQ(plugin().getLastErrorFlag(), flag);
    }
}

TEST_F(CardIdentification, OtherExceptionsPassToTheHost)
{
    givenThrown(BasicException(tr::Tr(tr::undefined, u"касса"_s)));
    EXPECT_THROW(whenPresented(), BasicException);
    thenLastError(QString());
}

TEST_F(CardIdentification, WithoutARecordNothingIsSent)
{
    card.reset();
    EXPECT_FALSE(whenPresented());
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Получение информации о карте"_s);
}

} // namespace

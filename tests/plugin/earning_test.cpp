#include "host/framework/session.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Earning : public PluginFixture
{
protected:
    Earning()
    {
        givenSaleWithCard();
        givenPosition(u"1001"_s, 30.0);
    }
    bool whenRegistered() { return plugin().hasPointsForEarn(); }
    QSharedPointer<DocumentCardRecord> card() { return plugin().getCard(); }
    static Map fullAnswer()
    {
        return {{key::activeChargedBonus, u"12"_s}, {key::chargedStatusBonus, u"2"_s},
            {key::writeoffBonus, 3.0}, {key::cardNormalActiveBalance, u"90.10"_s},
            {key::transactionId, u"T1"_s}, {key::processed, u"2026-03-14T15:09:26"_s}};
    }
};

TEST_F(Earning, AChequeIsRegisteredAndSaved)
{
    givenAnswer(fullAnswer());
    EXPECT_TRUE(whenRegistered());
    thenSteps({u"sale Fiscal"_s, u"save 17"_s});
    EXPECT_EQ(client().requests.first().document, document());
    EXPECT_EQ(story().savedFileNames, QStringList{QString()});
    thenLogged(u"INFO"_s, u"Запрос баллов для начисления"_s);
}

TEST_F(Earning, TheCardCarriesTheFiguresOfTheService)
{
    givenAnswer(fullAnswer());
    whenRegistered();
    EXPECT_EQ(card()->getPointsForEarn(), QVariant(10.0));
    EXPECT_EQ(card()->getPointsForSpend(), 3.0);
    EXPECT_EQ(card()->getBonusBalance(), QVariant(u"90.10"_s));
    EXPECT_EQ(card()->getOperationId(), u"T1"_s);
    EXPECT_EQ(plugin().m_pointsForEarn, 10.0);
}

TEST_F(Earning, TheDayOfTheTransactionJoinsTheOperationInformation)
{
    card()->setOperationInfo(Map{{u"other"_s, 1}});
    givenAnswer(fullAnswer());
    whenRegistered();
    EXPECT_EQ(card()->getOperationInfo().toMap(),
        (Map{{u"other"_s, 1}, {u"TransactionDate"_s, QDate(2026, 3, 14)}}));
}

TEST_F(Earning, ADayThatCannotBeReadIsAnInvalidDate)
{
    givenAnswer({{key::processed, u"вчера"_s}});
    whenRegistered();
    const QVariant day = card()->getOperationInfo().toMap().value(u"TransactionDate"_s);
    EXPECT_EQ(day.typeId(), QMetaType::QDate);
    EXPECT_FALSE(day.toDate().isValid());
}

TEST_F(Earning, AReturnIsNotRegistered)
{
    for (const auto type : {EDocumentType::ReturnOfSale, EDocumentType::ReturnWithoutSale}) {
        givenCurrentDocument(type);
        givenCard();
        EXPECT_FALSE(whenRegistered());
    }
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Запрос баллов для начисления"_s);
}

/// Says that goods come back whatever it is, and keeps what it was asked.
class AskedDocument : public AbstractDocument
{
public:
    using AbstractDocument::AbstractDocument;
    bool isOperation(
        const QPair<EDocumentType, EOperationKind> &typeAndKind, EOperationKind kind) const override
    {
        asked = {static_cast<int>(typeAndKind.first), static_cast<int>(typeAndKind.second),
            static_cast<int>(kind)};
        return true;
    }
    mutable QList<int> asked;
};

TEST_F(Earning, TheDocumentItselfSaysWhetherGoodsComeBack)
{
    const auto asked = QSharedPointer<AskedDocument>::create(EDocumentType::Sale, u"18"_s);
    Singleton<Session>::instance()->setCurrentDocument(asked);
    givenCard();
    EXPECT_FALSE(whenRegistered());
    EXPECT_EQ(asked->asked, (QList<int>{25, 2, 2}));
    thenNothingHappened();
}

TEST_F(Earning, OfflineNothingIsRegistered)
{
    plugin().offlineMode = true;
    plugin().m_bonusRecords = {DocumentBonusRecord()};
    EXPECT_FALSE(whenRegistered());
    thenNothingHappened();
}

TEST_F(Earning, WithoutACardNothingIsRegistered)
{
    givenCurrentDocument();
    plugin().m_bonusRecords = {DocumentBonusRecord()};
    EXPECT_FALSE(whenRegistered());
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Запрос баллов для начисления"_s);
}

TEST_F(Earning, AnEmptyDeskEarnsNothing)
{
    Singleton<Session>::instance()->setCurrentDocument({});
    EXPECT_FALSE(whenRegistered());
    thenNothingHappened();
}

TEST_F(Earning, ARegisteredChequeOnlyAnswersAgain)
{
    givenAnswer(fullAnswer());
    EXPECT_TRUE(whenRegistered());
    EXPECT_TRUE(whenRegistered());
    thenSteps({u"sale Fiscal"_s, u"save 17"_s});
    plugin().m_bonusRecords.clear();
    EXPECT_FALSE(whenRegistered());
}

TEST_F(Earning, NoPointsMeanNoRecordsAndTheAnswerFalse)
{
    givenAnswer({{key::transactionId, u"T1"_s}});
    EXPECT_FALSE(whenRegistered());
    thenSteps({u"sale Fiscal"_s, u"save 17"_s});
}

TEST_F(Earning, PointsAtTheToleranceMakeNoRecordButAreNoted)
{
    givenAnswer({{key::activeChargedBonus, u"0.005"_s}});
    EXPECT_FALSE(whenRegistered());
    EXPECT_EQ(card()->getPointsForEarn(), QVariant(0.005));
    EXPECT_EQ(plugin().m_pointsForEarn, 0.005);
}

TEST_F(Earning, PositionsMakeNoRecordsWhereTheWholeChequeEarnsNothing)
{
    givenAnswer({{key::activeChargedBonus, u"0.005"_s},
        {key::positions, Map{{u"1"_s, Map{{key::activeChargedBonus, 5.0}}}}}});
    EXPECT_FALSE(whenRegistered());
}

TEST_F(Earning, PointsThatOnlyCountForTheStatusMakeNoRecords)
{
    givenAnswer({{key::activeChargedBonus, u"5"_s}, {key::chargedStatusBonus, u"5"_s},
        {key::positions, Map{{u"1"_s, Map{{key::activeChargedBonus, 5.0}}}}}});
    EXPECT_FALSE(whenRegistered());
}

TEST_F(Earning, WithoutConfirmationNoRecordIsSent)
{
    givenStored(korvel::plugindata::verificationCode, u"A1"_s);
    whenRegistered();
    EXPECT_EQ(client().requests.first().confirmation, nullptr);
}

TEST_F(Earning, AConfirmedCodeIsSentWithoutAskingForAnother)
{
    plugin().useConfirmation = true;
    givenStored(korvel::plugindata::verificationCode, u"A1"_s);
    whenRegistered();
    const auto confirmation = client().requests.first().confirmation;
    ASSERT_NE(confirmation, nullptr);
    EXPECT_TRUE(confirmation->isConfirm());
    EXPECT_FALSE(confirmation->isSendCode());
    EXPECT_EQ(confirmation->getVerificationCode(), u"A1"_s);
}

TEST_F(Earning, WithoutACodeTheConfirmationIsEmpty)
{
    plugin().useConfirmation = true;
    whenRegistered();
    const auto confirmation = client().requests.first().confirmation;
    ASSERT_NE(confirmation, nullptr);
    EXPECT_TRUE(*confirmation == korvel::ConfirmationInfo());
}

TEST_F(Earning, TooFewPointsAreThrownAndLeaveTheCardAsItWas)
{
    givenAnswer(fullAnswer(), true);
    try {
        whenRegistered();
        FAIL() << "nothing was thrown";
    } catch (const KorvelException &error) {
        EXPECT_EQ(error.tr().id(), u"korvelCheckRegistrationError"_s);
        EXPECT_EQ(error.tr().ru(),
            u"Доступных баллов недостаточно для оплаты.\nОтмените оплату, вернитесь в "
            u"формирование и повторите попытку списания бонусов"_s);
    }
    thenSteps({u"sale Fiscal"_s});
    EXPECT_EQ(card()->getOperationId(), QString());
}

TEST_F(Earning, ARefusalReachesTheHostUnchanged)
{
    givenFailure<KorvelException>(u"Чек отклонён"_s);
    EXPECT_THROW(whenRegistered(), KorvelException);
    thenSteps({u"sale Fiscal"_s});
    thenLastError(QString());
}

template <typename Exception> class UnreachedRegistration : public Earning
{ };

using Unreached = testing::Types<KorvelNoConnectionException, KorvelInternalErrorException>;
TYPED_TEST_SUITE(UnreachedRegistration, Unreached);

TYPED_TEST(UnreachedRegistration, GoesOffline)
{
    this->template givenFailure<TypeParam>(u"нет связи"_s);
    EXPECT_FALSE(this->whenRegistered());
    this->thenSteps(
        {u"sale Fiscal"_s, u"dialog korvelNoConnection"_s, u"setOfflineMode"_s, u"save 17"_s});
    EXPECT_TRUE(this->plugin().offlineMode);
}

TEST_F(Earning, AMessageForTheCashierBringsTheTextOfTheCheque)
{
    givenAnswer({{key::cashierMessage, u"спасибо"_s},
        {key::chequeMessage, QStringList{u"раз"_s, u"два"_s}}});
    whenRegistered();
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"спасибо"_s});
    EXPECT_EQ(document()->getChequeText(), u"раз##два"_s);
}

TEST_F(Earning, WithoutAMessageForTheCashierTheTextOfTheChequeStays)
{
    document()->setChequeText(u"прежний"_s);
    plugin().m_messagesToCashier = {u"прежнее"_s};
    givenAnswer({{key::cashierMessage, QString()}, {key::chequeMessage, u"новый"_s}});
    whenRegistered();
    EXPECT_EQ(document()->getChequeText(), u"прежний"_s);
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"прежнее"_s});
}

TEST_F(Earning, MessagesToTheClientAreNotTouched)
{
    plugin().m_messagesToClient = {u"прежнее"_s};
    givenAnswer({{key::cashierMessage, u"спасибо"_s}, {key::chequeMessage, u"новый"_s}});
    whenRegistered();
    EXPECT_EQ(plugin().getMessagesToClient(), QStringList{u"прежнее"_s});
}

TEST_F(Earning, CouponsToPrintReplaceThoseOfBefore)
{
    plugin().couponsToPrint = {1};
    givenAnswer({{key::couponsToPrint, QVariantList{2, 3}}});
    whenRegistered();
    EXPECT_EQ(plugin().couponsToPrint, (QVariantList{2, 3}));
}

TEST_F(Earning, AnAnswerWithoutCouponsToPrintKeepsThoseOfBefore)
{
    plugin().couponsToPrint = {1};
    whenRegistered();
    EXPECT_EQ(plugin().couponsToPrint, (QVariantList{1}));
}

} // namespace

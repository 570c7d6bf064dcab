#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class BalanceTest : public ClientTest
{
protected:
    BalanceTest() { givenTime(QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9))); }
    Outcome whenAsked()
    {
        return outcomeOf([this] { client().balanceRequest(m_card); });
    }
    QSharedPointer<DocumentCardRecord> m_card = makeCard(u"2900000000017"_s);
};

class SaleTest : public ClientTest
{
protected:
    SaleTest() { givenCheque(); }
    Outcome whenSold()
    {
        return outcomeOf([this] {
            m_insufficient = client().saleChequeRequest(
                document(), korvel::chequetype::soft, m_confirmation, m_result);
        });
    }
    bool resultIsFilled() const { return m_result.contains(korvel::result::positions); }
    QSharedPointer<korvel::ConfirmationInfo> m_confirmation;
    Values m_result;
    std::optional<bool> m_insufficient;
};

class RollbackTest : public ClientTest
{
protected:
    RollbackTest()
    {
        givenTime(QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9)));
        givenCheque();
        document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(u"T-5"_s);
    }
    Outcome whenRolledBack()
    {
        return outcomeOf([this] { client().rollbackChequeRequest(document(), m_result); });
    }
    Values m_result;
};

class ReturnTest : public ClientTest
{
protected:
    ReturnTest() { givenCheque(); }
    Outcome whenReturned()
    {
        return outcomeOf([this] { client().returnChequeRequest(document()); });
    }
};

class OfflineTest : public ClientTest
{
protected:
    OfflineTest()
    {
        givenCheque();
        givenPosition(u"A"_s, 10);
    }
    QDomElement queuedPayload() const
    {
        const QDomDocument body
            = parsed(queue().entries.value(0).message.value(u"body"_s).toString());
        return body.elementsByTagName(u"request"_s).at(0).firstChildElement();
    }
};

} // namespace

TEST_F(BalanceTest, SendsTheCardWithinTheOnlineTimeout)
{
    givenSetting(u"timeout"_s, u"11"_s);
    givenAnswer({});
    whenAsked();
    EXPECT_EQ(exchanges().last().timeout, 11);
    EXPECT_TRUE(isXml(payload(), uR"(<BalanceRequest><Card><CardNumber>2900000000017</CardNumber>
        </Card><DateTime>2024-03-05T17:04:09</DateTime><POS/><Organization/><BusinessUnit/>
        </BalanceRequest>)"_s));
}

TEST_F(BalanceTest, IsLogged)
{
    givenAnswer({});
    whenAsked();
    EXPECT_EQ(logged(u"INFO"_s).value(0), u"Получение баланса карты"_s);
}

TEST_F(BalanceTest, StoresBalanceAndClient)
{
    givenAnswer(u"<ReturnCode>0</ReturnCode><CardNormalActiveBalance>12.5"
                "</CardNormalActiveBalance><CardType>Gold</CardType>"_s);
    EXPECT_EQ(whenAsked(), Outcome::Returns);
    EXPECT_EQ(m_card->getBonusBalance(), QVariant(12.5));
    EXPECT_EQ(m_card->getBonusBalance().typeId(), QMetaType::Double);
    EXPECT_EQ(m_card->getCard()->getClient()->getName(), u"Gold"_s);
}

TEST_F(BalanceTest, AMissingOrUnreadableBalanceIsZero)
{
    for (const QString &content :
        {u""_s, u"<CardNormalActiveBalance>x</CardNormalActiveBalance>"_s}) {
        m_card->setBonusBalance(7.0);
        givenAnswer(content);
        whenAsked();
        EXPECT_EQ(m_card->getBonusBalance(), QVariant(0.0)) << content.toStdString();
    }
}

TEST_F(BalanceTest, ARefusedCardKeepsBalanceAndClient)
{
    const QString rest = u"<CardNormalActiveBalance>5</CardNormalActiveBalance>"
                         "<CardType>Gold</CardType>"_s;
    for (const QString &refusal :
        {u"<ReturnCode>83000</ReturnCode>"_s, u"<CardStatus>3</CardStatus>"_s}) {
        SCOPED_TRACE(refusal.toStdString());
        givenAnswer(refusal + rest);
        EXPECT_EQ(whenAsked(), Outcome::Refusal);
        EXPECT_FALSE(m_card->getBonusBalance().isValid());
        EXPECT_TRUE(m_card->getCard()->getClient().isNull());
    }
}

TEST_F(BalanceTest, TheReturnCodeIsCheckedBeforeTheStatus)
{
    givenAnswer(u"<ReturnCode>80001</ReturnCode><CardStatus>3</CardStatus>"_s);
    EXPECT_EQ(whenAsked(), Outcome::InternalError);
}

TEST_F(SaleTest, SendsTheChequeWithinTheOnlineTimeout)
{
    givenSetting(u"timeout"_s, u"11"_s);
    givenSetting(u"timeoutReturn"_s, u"12"_s);
    m_confirmation = QSharedPointer<korvel::ConfirmationInfo>::create();
    givenAnswer({});
    whenSold();
    EXPECT_EQ(exchanges().last().timeout, 11);
    EXPECT_EQ(payload().attribute(u"ChequeType"_s), u"Soft"_s);
    EXPECT_TRUE(childNames(payload()).contains(u"WriteOffConfirm"_s));
}

TEST_F(SaleTest, SuccessFillsTheResultAndIsFalse)
{
    givenAnswer(u"<ReturnCode>0</ReturnCode><TransactionID>T</TransactionID>"_s);
    EXPECT_EQ(whenSold(), Outcome::Returns);
    EXPECT_EQ(m_insufficient, false);
    EXPECT_EQ(m_result.value(korvel::result::transactionId), QVariant(u"T"_s));
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
}

TEST_F(SaleTest, TooFewPointsFillTheResultAndAreTrue)
{
    givenSetting(u"registerErrorsInActivityJournal"_s, u"true"_s);
    givenAnswer(u"<ReturnCode>81400</ReturnCode><Message>!</Message>"_s);
    EXPECT_EQ(whenSold(), Outcome::Returns);
    EXPECT_EQ(m_insufficient, true);
    EXPECT_TRUE(resultIsFilled());
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
    EXPECT_TRUE(journal().events.isEmpty());
}

TEST_F(SaleTest, ANegativeCodeIsASuccess)
{
    givenAnswer(u"<ReturnCode>-1</ReturnCode>"_s);
    EXPECT_EQ(whenSold(), Outcome::Returns);
    EXPECT_EQ(m_insufficient, false);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
}

TEST_F(SaleTest, ARefusalIsLoggedAndLeavesTheResult)
{
    givenAnswer(u"<ReturnCode>80420</ReturnCode><Message>Нет карты</Message>"_s);
    EXPECT_EQ(whenSold(), Outcome::Refusal);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList(u"Ошибка при покупке Нет карты"_s));
    EXPECT_TRUE(m_result.isEmpty());
    EXPECT_FALSE(m_insufficient.has_value());
}

TEST_F(SaleTest, TheRefusalCarriesTheServicesMessage)
{
    givenAnswer(u"<ReturnCode>1</ReturnCode><Message>Нет карты</Message>"_s);
    const auto refusal = refusalOf([this] { whenCalculated(); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->tr(), tr::Tr(tr::undefined, u"Нет карты"_s));
    EXPECT_EQ(whenSold(), Outcome::InternalError);
}

TEST_F(SaleTest, AMissingReturnCodeIsLoggedAndStillSucceeds)
{
    givenAnswer(u"<Message>Странно</Message>"_s);
    EXPECT_EQ(whenSold(), Outcome::Returns);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList(u"Ошибка при покупке Странно"_s));
    EXPECT_EQ(m_insufficient, false);
    EXPECT_TRUE(resultIsFilled());
}

TEST_F(SaleTest, AReturnCodeBeyondThirtyTwoBitsIsLikeAMissingOne)
{
    givenAnswer(u"<ReturnCode>4295048696</ReturnCode>"_s);
    EXPECT_EQ(whenSold(), Outcome::Returns);
    EXPECT_EQ(m_insufficient, false);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList(u"Ошибка при покупке "_s));
}

TEST_F(SaleTest, ALostConnectionLeavesTheResult)
{
    givenFailure(RestClient::TimedOut, {});
    EXPECT_EQ(whenSold(), Outcome::NoConnection);
    EXPECT_TRUE(m_result.isEmpty());
}

TEST_F(RollbackTest, SendsOperationCardAndTransaction)
{
    givenSetting(u"timeout"_s, u"11"_s);
    givenSetting(u"timeoutReturn"_s, u"12"_s);
    givenAnswer({});
    whenRolledBack();
    EXPECT_EQ(exchanges().last().timeout, 11);
    EXPECT_TRUE(isXml(payload(), uR"(<ChequeRequest ChequeType="Fiscal">
        <OperationType>Rollback</OperationType>
        <Card><CardNumber>2900000000017</CardNumber></Card>
        <TransactionReference><TransactionID>T-5</TransactionID></TransactionReference>
        <DateTime>2024-03-05T17:04:09</DateTime><POS/><Organization/><BusinessUnit/>
        </ChequeRequest>)"_s));
}

TEST_F(RollbackTest, SetsTheBalanceAsATextAndNothingElse)
{
    givenAnswer(u"<CardNormalActiveBalance>007.50</CardNormalActiveBalance>"_s);
    EXPECT_EQ(whenRolledBack(), Outcome::Returns);
    EXPECT_EQ(m_result, (Values{{u"CardNormalActiveBalance"_s, u"007.50"_s}}));
    EXPECT_EQ(m_result.first().typeId(), QMetaType::QString);
}

TEST_F(RollbackTest, AFailureLeavesTheResult)
{
    givenAnswer(u"<ReturnCode>81330</ReturnCode>"_s);
    EXPECT_EQ(whenRolledBack(), Outcome::Refusal);
    EXPECT_TRUE(m_result.isEmpty());
}

TEST_F(ReturnTest, HasATimeoutOfItsOwn)
{
    givenSetting(u"timeout"_s, u"15"_s);
    givenSetting(u"timeoutReturn"_s, u"60"_s);
    givenAnswer({});
    EXPECT_EQ(whenReturned(), Outcome::Returns);
    EXPECT_EQ(exchanges().last().timeout, 60);
    EXPECT_EQ(childText(payload(), u"OperationType"_s), u"Return"_s);
}

TEST_F(ReturnTest, TheReturnCodeIsChecked)
{
    givenAnswer(u"<ReturnCode>81400</ReturnCode>"_s);
    EXPECT_EQ(whenReturned(), Outcome::InternalError);
}

TEST_F(OfflineTest, AQueuedSaleIsFiscalAndUnconfirmed)
{
    client().saleChequeRequestOffline(document());
    EXPECT_EQ(queue().entries.size(), 1);
    EXPECT_EQ(queuedPayload().attribute(u"ChequeType"_s), u"Fiscal"_s);
    EXPECT_EQ(childText(queuedPayload(), u"OperationType"_s), u"Sale"_s);
    EXPECT_FALSE(childNames(queuedPayload()).contains(u"WriteOffConfirm"_s));
    EXPECT_TRUE(exchanges().isEmpty());
}

TEST_F(OfflineTest, AQueuedReturnIsAReturn)
{
    client().returnChequeRequestOffline(document());
    EXPECT_EQ(queue().entries.size(), 1);
    EXPECT_EQ(childText(queuedPayload(), u"OperationType"_s), u"Return"_s);
    EXPECT_TRUE(exchanges().isEmpty());
}

TEST_F(OfflineTest, TheMinimumPriceForMarkdownPositionsIsTheSetting)
{
    givenSetting(u"minRetailPriceForMarkdownPositions"_s, u"0.25"_s);
    EXPECT_EQ(client().getMinRetailPriceForMarkdownPositions(), 0.25);
}

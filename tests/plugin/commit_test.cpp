#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class Commit : public PluginFixture
{
protected:
    void givenReturn(EDocumentType type = EDocumentType::ReturnOfSale)
    {
        givenCurrentDocument(type);
        givenCard();
        position = givenPosition(u"1001"_s, 10.0, 2.0);
    }
    bool whenCommitted() { return plugin().commit(document()); }

    QSharedPointer<GoodsItem> position;
};

TEST_F(Commit, BothKindsOfReturnsAreRegistered)
{
    for (const int code : {25, 7}) {
        givenReturn(static_cast<EDocumentType>(code));
        EXPECT_TRUE(whenCommitted());
    }
    thenSteps({u"process 6"_s, u"return"_s, u"process 6"_s, u"return"_s});
    thenLogged(u"INFO"_s, u"Подтверждение операций в бонусной системе Korvel Loyalty Online"_s);
}

TEST_F(Commit, OtherDocumentsNeedNothing)
{
    for (const int code : {1, 5}) {
        givenReturn(static_cast<EDocumentType>(code));
        EXPECT_TRUE(whenCommitted());
    }
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Подтверждение операций в бонусной системе Korvel Loyalty Online"_s);
}

TEST_F(Commit, WithoutACardNothingIsSent)
{
    givenCurrentDocument(EDocumentType::ReturnOfSale);
    EXPECT_TRUE(whenCommitted());
    thenNothingHappened();
}

TEST_F(Commit, WhatIsSentIsARecalculatedCopy)
{
    givenReturn();
    position->setSumn(7.0);
    whenCommitted();
    const auto sent = client().requests.first().document;
    ASSERT_NE(sent, document());
    EXPECT_TRUE(sent->getGoods().first()->isRecalcable());
    EXPECT_EQ(sent->getSumBeforeDiscounts(), 20.0);
    EXPECT_FALSE(position->isRecalcable());
    EXPECT_EQ(position->getSumn(), 7.0);
}

TEST_F(Commit, ReturnsAreSentInOfflineModeToo)
{
    givenReturn();
    plugin().offlineMode = true;
    EXPECT_TRUE(whenCommitted());
    thenSteps({u"process 6"_s, u"return"_s});
}

TEST_F(Commit, AnInternalErrorRefuses)
{
    givenReturn();
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    EXPECT_FALSE(whenCommitted());
    thenSteps({u"process 6"_s, u"return"_s});
    thenLastError(u"сбой"_s);
}

TEST_F(Commit, ALostConnectionQueuesTheSameCopyAndStaysOnline)
{
    givenReturn();
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    EXPECT_TRUE(whenCommitted());
    thenSteps({u"process 6"_s, u"return"_s, u"dialog korvelNoConnection"_s, u"queue return"_s});
    EXPECT_EQ(client().requests[0].document, client().requests[1].document);
    EXPECT_FALSE(plugin().offlineMode);
    thenLastError(QString());
}

TEST_F(Commit, ARefusalLeavesItsReason)
{
    givenReturn();
    givenFailure<KorvelException>(u"Возврат отклонён"_s);
    EXPECT_FALSE(whenCommitted());
    thenSteps({u"process 6"_s, u"return"_s});
    thenLastError(u"Возврат отклонён"_s);
}

TEST_F(Commit, OtherExceptionsPassToTheHost)
{
    givenReturn();
    givenThrown(BasicException(tr::Tr(tr::undefined, u"касса"_s)));
    EXPECT_THROW(whenCommitted(), BasicException);
}

} // namespace

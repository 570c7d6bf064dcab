// Documents are closed and cancelled: what happens, and in which order.

#include "host/framework/basicexception.h"
#include "host/net/restclient.h"
#include "host/printing/textprinter.h"
#include "host/storage/statefolder.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/frozenclock.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QStringList registration{u"event 72"_s, u"hasPointsForEarn"_s, u"event 73"_s};

class ClosingTest : public TillFixture
{
public:
    ClosingTest()
    {
        TextPrinter::setScreen([this](const QString &text) {
            loyalty->calls.append(u"printed"_s);
            receipt = text;
        });
    }
    ~ClosingTest() override { TextPrinter::setScreen({}); }

    /// The commit of a return asks a service that answers with this status.
    void givenCommitAnswered(int status)
    {
        loyalty->behaviour[u"commit"_s] = [this, status] {
            ScriptedServer service;
            service.answer("<E/>", status);
            MockFactory<RestClient>::create()->post(service.url(), "<x/>", {});
            return true;
        };
    }

    QString receipt; ///< as it was printed last
};

TEST_F(ClosingTest, ASaleIsRegisteredPrintedClosedAndLeftInThatOrder)
{
    givenSaleOf({u"1002"_s});
    till->close();
    const QStringList putOut{
        u"beforePutoutCheck"_s, u"printed"_s, u"event 10"_s, u"afterPutoutCheck"_s, u"event 22"_s};
    EXPECT_EQ(takeCalls(), registration + putOut);
}

TEST_F(ClosingTest, ThePreviewIsWhatIsPrintedWhereNothingChanges)
{
    till::FrozenClock clock;
    clock.freeze(QDateTime(QDate(2026, 3, 1), QTime(12, 0)));
    givenIdentifiedCard();
    givenCalculatedSale({u"1001"_s, u"1002"_s}, 5.0);
    document()->setPayments({{u"cash"_s, 200.0}});
    const QString preview = till->receiptPreview();
    EXPECT_TRUE(preview.contains(u"ИТОГО")) << qPrintable(preview);
    till->close();
    EXPECT_EQ(preview, receipt);
}

TEST_F(ClosingTest, ThePreviewTellsOfWhatTheChequeHasNow)
{
    EXPECT_EQ(till->receiptPreview(), QString());
    givenSaleOf({u"1002"_s});
    EXPECT_FALSE(till->receiptPreview().contains(u"Хлеб"));
    givenSaleOf({u"1001"_s});
    EXPECT_TRUE(till->receiptPreview().contains(u"Хлеб"));
}

TEST_F(ClosingTest, ThePreviewExpectsTheServiceToAnswerAsItDid)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    EXPECT_TRUE(till->receiptPreview().contains(u"Баллы будут начислены позже"));
    ScriptedServer service;
    service.answer("<E/>");
    MockFactory<RestClient>::create()->post(service.url(), "<x/>", {});
    EXPECT_FALSE(till->receiptPreview().contains(u"Баллы будут начислены позже"));
}

TEST_F(ClosingTest, ThePreviewAsksNobodyAndPrintsNothing)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    const int exchanged = exchanges->count();
    static_cast<void>(till->receiptPreview());
    EXPECT_EQ(takeCalls(), QStringList());
    EXPECT_EQ(receipt, QString());
    EXPECT_EQ(exchanges->count(), exchanged);
    EXPECT_FALSE(QFile::exists(Singleton<StateFolder>::instance()->receipts()));
}

TEST_F(ClosingTest, APreviewThatIsNotPossibleSaysWhy)
{
    const QString folder = Singleton<StateFolder>::instance()->path() + u"/wrong"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile file(folder + u"/receipt.mustache"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{{#open}}");
    file.close();
    givenSetting(u"TextPrinter:templates"_s, folder);
    givenSaleOf({u"1002"_s});
    EXPECT_TRUE(till->receiptPreview().startsWith(u"Ошибка в шаблоне печати «receipt»"));
}

TEST_F(ClosingTest, TheClosedChequeIsStillCurrentDuringEvent10AndGoneAtEvent22)
{
    givenSaleOf({u"1002"_s});
    bool closedAt10 = false;
    bool goneAt22 = false;
    loyalty->behaviour[u"event 10"_s]
        = [&] { return closedAt10 = document()->getState() == EDocumentState::Closed; };
    loyalty->behaviour[u"event 22"_s] = [&] { return goneAt22 = document().isNull(); };
    till->close();
    EXPECT_TRUE(closedAt10);
    EXPECT_TRUE(goneAt22);
}

TEST_F(ClosingTest, WhatTheClosedDocumentCarriesWasCopiedBeforeEvent10)
{
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        loyalty->giveBonusRecord(7.0);
        return true;
    };
    loyalty->behaviour[u"event 10"_s] = [this] {
        loyalty->clearLoyaltyData();
        return true;
    };
    const auto outcome = till->close();
    EXPECT_EQ(outcome.result, QVariant(true));
    EXPECT_EQ(outcome.left->getEffects().bonusRecords.size(), 1);
    EXPECT_EQ(store->loadClosed(outcome.left->getNumber())->getEffects().bonusRecords.size(), 1);
}

TEST_F(ClosingTest, TheClosedDocumentIsAmongTheClosedOnesAndNoLongerOpen)
{
    givenSaleOf({u"1002"_s});
    const auto outcome = till->close();
    EXPECT_EQ(outcome.left->getState(), EDocumentState::Closed);
    EXPECT_TRUE(outcome.left->getClosed().isValid());
    EXPECT_FALSE(store->loadOpen());
    EXPECT_EQ(store->closedNumbers(), QStringList{u"17"_s});
}

TEST_F(ClosingTest, ACloseImpliesNoTotal)
{
    givenSaleOf({u"1002"_s});
    till->close();
    EXPECT_FALSE(takeCalls().contains(u"request"));
}

TEST_F(ClosingTest, EarningNothingIsNoRefusal)
{
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s] = [] { return false; };
    const auto outcome = till->close();
    EXPECT_EQ(outcome.result, QVariant(false));
    EXPECT_FALSE(outcome.refusal);
    EXPECT_TRUE(outcome.left);
}

TEST_F(ClosingTest, TheBonusRecordsOfAnUnregisteredChequeAreEmptiedBefore)
{
    givenSaleOf({u"1002"_s});
    loyalty->giveBonusRecord(7.0);
    qsizetype records = -1;
    loyalty->behaviour[u"hasPointsForEarn"_s] = [&] {
        records = loyalty->getBonusRecords().size();
        return true;
    };
    till->close();
    EXPECT_EQ(records, 0);
}

TEST_F(ClosingTest, TheBonusRecordsOfARegisteredChequeAreKept)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->presented->setOperationId(u"T-1"_s);
    loyalty->giveBonusRecord(7.0);
    qsizetype records = -1;
    loyalty->behaviour[u"hasPointsForEarn"_s] = [&] {
        records = loyalty->getBonusRecords().size();
        return true;
    };
    till->close();
    EXPECT_EQ(records, 1);
}

TEST_F(ClosingTest, AnExceptionOfTheRegistrationIsShownAndTheChequeStaysOpen)
{
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s]
        = []() -> bool { throw BasicException(tr::Tr(u"notEnough"_s, u"Мало"_s)); };
    const auto outcome = till->close();
    EXPECT_FALSE(outcome.result.isValid());
    EXPECT_EQ(outcome.refusal.value().message.id(), u"notEnough"_s);
    EXPECT_EQ(takeCalls(), registration);
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getState(), EDocumentState::Open);
    EXPECT_TRUE(till->document()->getPayments().isEmpty());
}

TEST_F(ClosingTest, AnExceptionAfterTheRegistrationIsShownAndTheChequeClosed)
{
    for (const QString &operation :
        {u"beforePutoutCheck"_s, u"event 10"_s, u"afterPutoutCheck"_s}) {
        SCOPED_TRACE(qPrintable(operation));
        loyalty->behaviour.clear();
        givenSaleOf({u"1002"_s});
        loyalty->behaviour[operation] = []() -> bool { throw std::runtime_error("queue is full"); };
        const auto outcome = till->close();
        EXPECT_EQ(outcome.refusal.value().message.ru(), u"queue is full"_s);
        EXPECT_EQ(outcome.left->getState(), EDocumentState::Closed);
        EXPECT_FALSE(till->document());
    }
}

TEST_F(ClosingTest, TheRestIsPaidInCashWhenNothingWasPaid)
{
    givenSaleOf({u"1002"_s});
    const auto payments = till->close().left->getPayments();
    ASSERT_EQ(payments.size(), 1);
    EXPECT_EQ(payments.constFirst().kind, u"cash"_s);
    EXPECT_DOUBLE_EQ(payments.constFirst().amount, 100.0);
}

TEST_F(ClosingTest, APartlyPaidChequeIsAnErrorAndAsksNothing)
{
    givenSaleOf({u"1002"_s});
    till->pay(till::PaymentKind::Card, 60.0);
    EXPECT_EQ(whyNot([&] { till->close(); }),
        u"чек оплачен не полностью, осталось 40.00; доплатите наличными или картой"_s);
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(ClosingTest, APaidChequeKeepsItsPayment)
{
    givenSaleOf({u"1002"_s});
    till->pay(till::PaymentKind::Card, std::nullopt);
    const auto payments = till->close().left->getPayments();
    ASSERT_EQ(payments.size(), 1);
    EXPECT_EQ(payments.constFirst().kind, u"card"_s);
}

TEST_F(ClosingTest, AnEmptyDocumentCannotBeClosed)
{
    till->openSale();
    EXPECT_TRUE(whyNot([&] { till->close(); }).startsWith(u"в документе нет позиций"));
    EXPECT_TRUE(till->document());
}

TEST_F(ClosingTest, AnEmptyDeskHasNothingToCloseOrCancel)
{
    EXPECT_TRUE(whyNot([&] { till->close(); }).startsWith(u"нет открытого документа"));
    EXPECT_TRUE(whyNot([&] { till->cancel(); }).startsWith(u"нет открытого документа"));
}

TEST_F(ClosingTest, AReturnIsCommittedAndNotAnnounced)
{
    till->openReturn();
    givenSaleOf({u"1002"_s});
    const auto outcome = till->close();
    EXPECT_EQ(outcome.result, QVariant(true));
    EXPECT_EQ(takeCalls(),
        (QStringList{u"commit"_s, u"beforePutoutCheck"_s, u"printed"_s, u"event 10"_s,
            u"afterPutoutCheck"_s, u"event 22"_s}));
}

TEST_F(ClosingTest, ARefusedReturnStaysOpen)
{
    till->openReturn();
    givenSaleOf({u"1002"_s});
    loyalty->refuseWith(u"id"_s, u"Возврат невозможен"_s, false);
    loyalty->behaviour[u"commit"_s] = [] { return false; };
    const auto outcome = till->close();
    EXPECT_EQ(outcome.refusal.value().message.ru(), u"Возврат невозможен"_s);
    EXPECT_TRUE(till->document());
    EXPECT_TRUE(store->closedNumbers().isEmpty());
}

TEST_F(ClosingTest, TheReceiptOfASaleSaysWhetherItsPointsAreBooked)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    till->close();
    EXPECT_TRUE(receipt.contains(u"Баллы будут начислены позже"_s)) << qPrintable(receipt);
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->presented->setOperationId(u"T-1"_s);
    till->close();
    EXPECT_FALSE(receipt.contains(u"позже"_s)) << qPrintable(receipt);
}

TEST_F(ClosingTest, TheReceiptOfAReturnSaysWhetherItsPointsAreBooked)
{
    const QString sale = givenClosedSale();
    till->openReturnOf(sale);
    givenCommitAnswered(200);
    till->close();
    EXPECT_TRUE(receipt.contains(u"Баллы за покупку пересчитаны"_s)) << qPrintable(receipt);
    till->openReturnOf(sale);
    givenCommitAnswered(503);
    till->close();
    EXPECT_TRUE(receipt.contains(u"Баллы за покупку будут пересчитаны позже"_s))
        << qPrintable(receipt);
}

TEST_F(ClosingTest, AFailingPrinterIsToldAndTheChequeClosed)
{
    givenSaleOf({u"1002"_s});
    QFile obstacle(Singleton<StateFolder>::instance()->receipts());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    const auto outcome = till->close();
    EXPECT_EQ(outcome.notices.size(), 1);
    EXPECT_TRUE(outcome.left);
}

TEST_F(ClosingTest, ACancelledDocumentIsRolledBackThenEvent12IsSent)
{
    givenSaleOf({u"1002"_s});
    const auto outcome = till->cancel();
    EXPECT_EQ(outcome.result, QVariant(true));
    EXPECT_EQ(outcome.left->getState(), EDocumentState::Cancelled);
    EXPECT_EQ(takeCalls(), (QStringList{u"rollback"_s, u"event 12"_s, u"event 22"_s}));
    EXPECT_FALSE(store->loadOpen());
    EXPECT_TRUE(store->closedNumbers().isEmpty());
}

TEST_F(ClosingTest, ADocumentWhoseRollbackIsRefusedStaysOpen)
{
    givenSaleOf({u"1002"_s});
    loyalty->refuseWith(u"id"_s, u"Нет связи"_s, false);
    loyalty->behaviour[u"rollback"_s] = [] { return false; };
    const auto outcome = till->cancel();
    EXPECT_EQ(outcome.result, QVariant(false));
    EXPECT_EQ(outcome.refusal.value().message.ru(), u"Нет связи"_s);
    EXPECT_EQ(takeCalls(), QStringList{u"rollback"_s});
    EXPECT_TRUE(till->document());
}

TEST_F(ClosingTest, CancellingAReturnRollsBackWithoutTheSalesOperationId)
{
    till->openReturnOf(givenClosedSale());
    QString id = u"none"_s;
    loyalty->behaviour[u"rollback"_s] = [&] {
        id = document()->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId();
        return true;
    };
    till->cancel();
    EXPECT_EQ(id, QString());
}

} // namespace

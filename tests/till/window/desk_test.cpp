// Keys and typed words become operations of the till; what comes of them becomes texts.

#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/statefolder.h"
#include "tests/support/printers.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/window/deskfixture.h"

#include <QDir>

using namespace Qt::StringLiterals;
using till::Function;

namespace {

class DeskTest : public DeskFixture
{ };

TEST_F(DeskTest, WhatIsEnteredIsScanned)
{
    EXPECT_TRUE(desk.enter(u" 461001 "_s));
    EXPECT_TRUE(desk.enter(u"2900000000017"_s));
    EXPECT_TRUE(desk.enter(u"990001"_s));
    EXPECT_EQ(desk.cheque().positions.constFirst().code, u"1001");
    EXPECT_EQ(desk.cheque().customer.card, u"2900000000017");
    EXPECT_EQ(desk.cheque().coupons, QStringList{u"990001"_s});
}

TEST_F(DeskTest, WhatNobodyKnowsIsToldAndNotTaken)
{
    EXPECT_FALSE(desk.enter(u"4711"_s));
    EXPECT_EQ(desk.messages().size(), 1);
    EXPECT_TRUE(desk.messages().constFirst().startsWith(u"4711 "));
}

TEST_F(DeskTest, ABlankLineDoesNothing)
{
    EXPECT_FALSE(desk.enter(u"  "_s));
    EXPECT_TRUE(desk.messages().isEmpty());
    EXPECT_FALSE(till->document());
}

TEST_F(DeskTest, QuantityIsTakenFromTheLine)
{
    givenSale({u"1001"_s});
    EXPECT_TRUE(whenPressed(Function::Quantity, u"2,5"_s));
    EXPECT_EQ(desk.cheque().positions.constFirst().quantity, u"2.5 шт");
}

TEST_F(DeskTest, QuantityIsAskedForWhenTheLineIsEmpty)
{
    givenSale({u"1001"_s});
    cashier.addText(u"3"_s);
    EXPECT_TRUE(whenPressed(Function::Quantity));
    EXPECT_EQ(desk.cheque().positions.constFirst().quantity, u"3 шт");
}

TEST_F(DeskTest, AFormThatIsCancelledDoesNothing)
{
    givenSale({u"1001"_s});
    cashier.addCancel();
    EXPECT_FALSE(whenPressed(Function::Quantity));
    EXPECT_TRUE(desk.messages().isEmpty());
}

TEST_F(DeskTest, WhatIsNoQuantityIsTold)
{
    givenSale({u"1001"_s});
    for (const QString &typed : {u"0"_s, u"0,0"_s, u"-1"_s, u"1.2345"_s, u"два"_s, u"1e3"_s}) {
        SCOPED_TRACE(qPrintable(typed));
        EXPECT_FALSE(whenPressed(Function::Quantity, typed));
    }
    EXPECT_EQ(desk.messages(), QStringList{u"Введите число, например 2 или 1,5"_s});
    EXPECT_EQ(desk.cheque().positions.constFirst().quantity, u"1 шт");
}

TEST_F(DeskTest, APositionMustBeChosen)
{
    for (const Function function : {Function::Quantity, Function::Remove})
        EXPECT_FALSE(desk.perform(function, {}, std::nullopt));
    EXPECT_EQ(desk.messages(), QStringList{u"Выберите позицию чека"_s});
}

TEST_F(DeskTest, APositionIsTakenOff)
{
    givenSale({u"1001"_s, u"1002"_s});
    EXPECT_TRUE(whenPressed(Function::Remove));
    ASSERT_EQ(desk.cheque().positions.size(), 1);
    EXPECT_EQ(desk.cheque().positions.constFirst().posnum, 2);
}

TEST_F(DeskTest, CardsAndCouponsAreKeyedWithoutAPrefix)
{
    EXPECT_TRUE(whenPressed(Function::Card, u"123"_s));
    EXPECT_EQ(loyalty->presentedHow, ECardNumberType::Keyed);
    cashier.addText(u"77"_s);
    EXPECT_TRUE(whenPressed(Function::Coupon));
    EXPECT_EQ(desk.cheque().customer.card, u"123");
    EXPECT_EQ(desk.cheque().coupons, QStringList{u"77"_s});
}

TEST_F(DeskTest, ARefusalIsToldAndTheLineKept)
{
    loyalty->refuseWith(u"cardBlocked"_s, u"Карта заблокирована"_s, false);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    EXPECT_FALSE(whenPressed(Function::Card, u"123"_s));
    EXPECT_EQ(desk.messages(), QStringList{u"Карта заблокирована"_s});
}

TEST_F(DeskTest, PointsAreOptional)
{
    givenSale({u"1002"_s});
    loyalty->setAvailablePoints(50.0);
    EXPECT_TRUE(whenPressed(Function::Points, u"20,5"_s));
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 20.5);
    cashier.addText({});
    EXPECT_TRUE(whenPressed(Function::Points));
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 0.0);
}

TEST_F(DeskTest, ASaleIsOpenedCalculatedAndClosed)
{
    EXPECT_TRUE(whenPressed(Function::Sale));
    givenSale({u"1001"_s});
    takeCalls();
    EXPECT_TRUE(whenPressed(Function::Total));
    EXPECT_TRUE(takeCalls().contains(u"request"_s));
    EXPECT_TRUE(whenPressed(Function::Close));
    EXPECT_TRUE(takeCalls().contains(u"hasPointsForEarn"_s));
    EXPECT_EQ(desk.cheque().title, u"Касса свободна");
}

TEST_F(DeskTest, NothingIsDoneOverAnUnfinishedLine)
{
    givenSale({u"1001"_s});
    for (const Function function : {Function::Sale, Function::Remove, Function::Total,
             Function::Close, Function::Cancel, Function::EndShift})
        EXPECT_FALSE(whenPressed(function, u"1002"_s));
    EXPECT_EQ(desk.messages(), QStringList{u"Сначала введите или сотрите набранное: 1002"_s});
    EXPECT_TRUE(till->document());
}

TEST_F(DeskTest, ACancellationIsConfirmed)
{
    givenSale({u"1001"_s});
    cashier.addCancel();
    EXPECT_FALSE(whenPressed(Function::Cancel));
    EXPECT_TRUE(till->document());
    cashier.addOk();
    EXPECT_TRUE(whenPressed(Function::Cancel));
    EXPECT_FALSE(till->document());
}

TEST_F(DeskTest, TheEndOfTheShiftIsConfirmedAndItsSumsAreTold)
{
    cashier.addCancel();
    EXPECT_FALSE(whenPressed(Function::EndShift));
    EXPECT_TRUE(desk.messages().isEmpty());
    EXPECT_TRUE(whenPressed(Function::EndShift));
    EXPECT_TRUE(desk.messages().contains(u"Продажи: 0, сумма 0.00"_s));
}

TEST_F(DeskTest, AReturnIsOfASaleOrOfNone)
{
    givenClosedSale();
    EXPECT_TRUE(whenPressed(Function::Return, u"17"_s));
    EXPECT_EQ(desk.cheque().title, u"Возврат № 18 по чеку № 17");
    whenPressed(Function::Cancel);
    cashier.addText({});
    EXPECT_TRUE(whenPressed(Function::Return));
    EXPECT_EQ(desk.cheque().title, u"Возврат без чека, № 19");
}

TEST_F(DeskTest, MessagesOfTheLoyaltySystemStayUntilTheyAreRead)
{
    givenSale({u"1001"_s});
    loyalty->setMessageToCashier(u"Предложите пакет"_s);
    whenPressed(Function::Total);
    whenPressed(Function::Quantity, u"2"_s);
    EXPECT_EQ(desk.messages(), QStringList{u"Предложите пакет"_s});
    whenPressed(Function::MessagesRead);
    EXPECT_TRUE(desk.messages().isEmpty());
    whenPressed(Function::Quantity, u"3"_s);
    EXPECT_TRUE(desk.messages().isEmpty());
    whenPressed(Function::Close);
    EXPECT_EQ(desk.messages(), QStringList{u"Предложите пакет"_s});
}

TEST_F(DeskTest, MessagesForTheCustomerSayForWhomTheyAre)
{
    givenSale({u"1001"_s});
    for (const QString &message : {QString(), u"Спасибо"_s}) {
        loyalty->setMessageToClient(message);
        whenPressed(Function::Total);
    }
    EXPECT_EQ(desk.messages(), QStringList{u"Покупателю: Спасибо"_s});
}

TEST_F(DeskTest, AnActionThatThePlugInStoppedIsTold)
{
    loyalty->hookIn(control::EActionType::AddPosition, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Refuse; });
    givenSale({u"1001"_s});
    EXPECT_EQ(desk.messages(), QStringList{u"Система лояльности не разрешила операцию"_s});
    EXPECT_TRUE(desk.cheque().positions.isEmpty());
}

TEST_F(DeskTest, ThePaperIsWhatThePrinterGot)
{
    givenSale({u"1001"_s});
    loyalty->behaviour[u"event 10"_s] = [] {
        MockFactory<TextPrinter>::create()->print({}, u"Купон"_s, {}, 1, true);
        return true;
    };
    whenPressed(Function::Close);
    EXPECT_FALSE(desk.isPreview());
    EXPECT_EQ(desk.paper(), receipts());
    EXPECT_TRUE(desk.paper().contains(u"Хлеб"));
    EXPECT_TRUE(desk.paper().contains(u"Купон"));
}

TEST_F(DeskTest, ThePaperOfAnOpenChequeIsWhatThePrinterWouldGet)
{
    EXPECT_EQ(desk.paper(), QString());
    givenSale({u"1001"_s});
    EXPECT_TRUE(desk.isPreview());
    EXPECT_EQ(desk.paper(), till->receiptPreview());
    givenSale({u"1002"_s});
    EXPECT_TRUE(desk.paper().contains(u"Молоко"));
    EXPECT_EQ(receipts(), QString());
}

TEST_F(DeskTest, ACancelledChequeLeavesNoPaper)
{
    givenSale({u"1001"_s});
    whenPressed(Function::Close);
    givenSale({u"1002"_s});
    cashier.addOk();
    whenPressed(Function::Cancel);
    EXPECT_EQ(desk.paper(), QString());
}

TEST_F(DeskTest, TheCardThatWasRefusedIsTold)
{
    whenPressed(Function::Card, u"123"_s);
    loyalty->refuseWith(u"cardBlocked"_s, u"Карта заблокирована"_s, false);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    whenPressed(Function::Card, u"77"_s);
    EXPECT_EQ(desk.cheque().customer.card, u"123");
    EXPECT_EQ(desk.cheque().customer.status, u"карта 77 не принята: Карта заблокирована");
    givenSale({u"1001"_s});
    EXPECT_EQ(desk.cheque().customer.status, u"карта 77 не принята: Карта заблокирована");
    loyalty->behaviour.remove(u"identifyByCard"_s);
    desk.enter(u"2900000000017"_s);
    EXPECT_EQ(desk.cheque().customer.status, u"карта принята");
}

TEST_F(DeskTest, ARefusedCardIsForgottenWithItsCheque)
{
    givenSale({u"1001"_s});
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    whenPressed(Function::Card, u"77"_s);
    whenPressed(Function::Close);
    EXPECT_EQ(desk.cheque().customer.status, u"карта не предъявлена");
}

TEST_F(DeskTest, AFailedExchangeTakesTheServiceOffline)
{
    ScriptedServer server;
    server.answerRaw({});
    server.answer("yes");
    givenSale({u"1001"_s});
    givenExchangeDuring(u"request"_s, server.url());
    whenPressed(Function::Total);
    EXPECT_TRUE(desk.connection().isOffline());
    whenPressed(Function::Total);
    EXPECT_FALSE(desk.connection().isOffline());
}

TEST_F(DeskTest, TheStateOfTheServiceIsTheConnectionsUntilLoyaltyIsOff)
{
    EXPECT_EQ(desk.serviceState(), desk.connection().text());
    till::WithoutLoyalty without;
    till->switchLoyaltyOff(without);
    desk.start();
    EXPECT_EQ(desk.serviceState(), u"Лояльность на этой кассе выключена"_s);
    EXPECT_EQ(desk.messages(), QStringList{u"Лояльность на этой кассе выключена"_s});
}

TEST_F(DeskTest, TheQueueIsToldAndLeftAloneDuringAnOperation)
{
    EXPECT_EQ(desk.queueState(), u"Очередь отправки пуста");
    givenSale({u"1001"_s});
    QString during;
    loyalty->behaviour[u"request"_s] = [&] {
        Singleton<DBQueueBroker>::instance()->enqueue(
            u"any"_s, {{u"url"_s, u"http://127.0.0.1/"_s}}, {});
        during = desk.queueState();
        return true;
    };
    whenPressed(Function::Total);
    EXPECT_EQ(during, u"Очередь отправки пуста");
    EXPECT_TRUE(desk.queueState().startsWith(u"Ждут отправки 1 "));
}

TEST_F(DeskTest, AFolderThatCannotBeWrittenIsTold)
{
    const QString state = Singleton<StateFolder>::instance()->path();
    ASSERT_TRUE(QDir().mkpath(state + u"/document.json.new"_s));
    EXPECT_FALSE(desk.enter(u"461001"_s));
    ASSERT_FALSE(desk.messages().isEmpty());
    EXPECT_TRUE(desk.messages().constLast().contains(u"document.json.new: не открывается"_s))
        << qPrintable(desk.messages().constLast());
}

TEST_F(DeskTest, AQueueThatCannotBeReadIsTold)
{
    Singleton<DBQueueBroker>::reset();
    ASSERT_TRUE(QDir().mkpath(Singleton<StateFolder>::instance()->queue()));
    QFile::remove(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s);
    ASSERT_TRUE(QDir().mkpath(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s));
    const QString told = desk.queueState();
    EXPECT_TRUE(told.startsWith(u"Очередь отправки недоступна: "_s)) << qPrintable(told);
    EXPECT_TRUE(told.contains(u"queue.sqlite"_s)) << qPrintable(told);
}

TEST_F(DeskTest, ASharedQueueIsLookedAtBySomebodyElse)
{
    EXPECT_FALSE(till::Desk::isQueueShared());
    Singleton<DBQueueBroker>::reset();
    givenSetting(u"Queue:database"_s, u"postgresql://user@127.0.0.1:1/queue"_s);
    ASSERT_TRUE(till::Desk::isQueueShared());
    EXPECT_EQ(desk.queueState(), QString());
    QueueOffice::Status status;
    status.unreached = tr::Tr(tr::undefined, u"no route"_s);
    desk.takeQueueState(status);
    EXPECT_EQ(desk.queueState(), u"Очередь отправки пуста · сервер очереди недоступен");
    desk.takeQueueFailure(u"no program"_s);
    EXPECT_EQ(desk.queueState(), u"Очередь отправки недоступна: no program");
}

TEST_F(DeskTest, ADocumentThatWasLeftOpenIsShownAtTheStart)
{
    givenSale({u"1001"_s});
    loyalty->setMessageToCashier(u"Предложите пакет"_s);
    whenPressed(Function::Total);
    till::Desk next(*till, services.exchanges(), recorder, cashier);
    next.start();
    EXPECT_EQ(next.cheque(), desk.cheque());
    EXPECT_EQ(next.messages(), QStringList{u"Предложите пакет"_s});
}

} // namespace

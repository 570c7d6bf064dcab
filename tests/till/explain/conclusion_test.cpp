// How a story ends where a till seldom gets to: by evidence that is put together here.

#include "host/documents/card.h"
#include "host/framework/event.h"
#include "till/explain/conclusion.h"
#include "till/explain/steps.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::explain;

namespace {

const QString technical = u"Technical"_s;

class ConclusionTest : public testing::Test
{
public:
    ConclusionTest()
    {
        evidence.number = u"7"_s;
        evidence.correlationId = u"id"_s;
        evidence.document = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, u"7"_s);
        evidence.document->setOpened(at(0));
        evidence.document->setClosed(at(60));
        evidence.document->setState(EDocumentState::Closed);
        givenCard(u""_s);
    }
    static QDateTime at(int second)
    {
        return QDateTime(QDate(2026, 3, 1), QTime(12, 0)).addSecs(second);
    }
    void givenCard(const QString &group)
    {
        const auto cardGroup = QSharedPointer<CardGroup>::create();
        cardGroup->setName(group);
        cardGroup->setCardMode(ECardMode::OnlineLoyalty);
        const auto card = QSharedPointer<Card>::create();
        card->setNumber(u"29"_s);
        card->setCardGroup(cardGroup);
        evidence.document->addCardRecord(QSharedPointer<DocumentCardRecord>::create(card));
    }
    void givenBooking() const
    {
        evidence.document->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(u"77"_s);
    }
    void givenMessage(MessageState state, const QString &id = u"m"_s)
    {
        QueueMessage message;
        message.id = id;
        message.state = state;
        message.enqueued = at(61);
        evidence.messages.append(message);
    }
    void givenLine(const QString &kind, QJsonObject members)
    {
        members.insert(u"kind"_s, kind);
        evidence.journal.append({at(30), u"id"_s, u"7"_s, kind, members});
    }
    void givenClosingEvent()
    {
        givenLine(u"event"_s, {{u"code"_s, EActivityListener::ChequeClosed}});
        evidence.journal.last().time = evidence.document->getClosed();
    }
    void givenExchange(const QString &operation, int error, int returnCode)
    {
        QJsonObject members{{u"operation"_s, operation}, {u"error"_s, error}};
        if (error == 0)
            members.insert(u"returnCode"_s, returnCode);
        givenLine(u"exchange"_s, members);
    }
    void givenCancelled()
    {
        givenLine(u"event"_s, {{u"code"_s, EActivityListener::ChequeCancelled}});
        evidence.document.clear();
    }
    [[nodiscard]] Whereabouts where() const { return conclude(evidence, technical).where; }
    [[nodiscard]] QString why() const { return conclude(evidence, technical).why.id(); }

    Evidence evidence;
};

TEST_F(ConclusionTest, EachStateOfTheMessageSaysWhere)
{
    const QList<QPair<MessageState, Whereabouts>> rows{
        {MessageState::Pending, Whereabouts::Waiting},
        {MessageState::Sending, Whereabouts::Waiting},
        {MessageState::Delivered, Whereabouts::Booked},
        {MessageState::Refused, Whereabouts::Refused}, {MessageState::Parked, Whereabouts::Parked}};
    for (const auto &[state, wanted] : rows) {
        evidence.messages.clear();
        givenMessage(state);
        EXPECT_EQ(where(), wanted) << qPrintable(stateName(state));
    }
}

TEST_F(ConclusionTest, OneDeliveredMessageIsEnough)
{
    givenMessage(MessageState::Delivered);
    givenMessage(MessageState::Refused, u"n"_s);
    EXPECT_EQ(where(), Whereabouts::Booked);
}

TEST_F(ConclusionTest, OtherwiseTheLastMessageDecides)
{
    givenMessage(MessageState::Parked);
    givenMessage(MessageState::Pending, u"n"_s);
    EXPECT_EQ(where(), Whereabouts::Waiting);
}

TEST_F(ConclusionTest, ABookedChequeNeedsNoMessage)
{
    givenBooking();
    givenMessage(MessageState::Refused);
    EXPECT_EQ(where(), Whereabouts::Booked);
}

TEST_F(ConclusionTest, TheTillsOwnCardEarnsNothing)
{
    givenCard(technical);
    givenBooking();
    EXPECT_EQ(where(), Whereabouts::NeverEarned);
}

TEST_F(ConclusionTest, WithoutBookingAndMessageNobodyKnows)
{
    EXPECT_EQ(where(), Whereabouts::Unknown);
    EXPECT_EQ(why(), u"explainWhyNotQueued"_s);
    evidence.queueProblem = {u"id"_s, u"damaged"_s};
    EXPECT_EQ(why(), u"explainWhyQueueUnseen"_s);
}

TEST_F(ConclusionTest, AnOpenDocumentWhoseBookingBeganIsInDoubt)
{
    evidence.document->setState(EDocumentState::Open);
    EXPECT_EQ(where(), Whereabouts::Open);
    evidence.document->setRegistrationBegun(true);
    EXPECT_EQ(where(), Whereabouts::Unknown);
    evidence.document->setRegistrationBegun(false);
    evidence.document->setBookingUnknown(true);
    EXPECT_EQ(where(), Whereabouts::Unknown);
    evidence.document->setBookingUnknown(false);
    givenBooking();
    EXPECT_EQ(why(), u"explainWhyBookedOpen"_s);
}

TEST_F(ConclusionTest, ARefusalCountsUntilTheServiceAgrees)
{
    evidence.document->setState(EDocumentState::Open);
    givenExchange(u"register"_s, 0, 80241);
    EXPECT_EQ(where(), Whereabouts::Refused);
    givenExchange(u"calculate"_s, 0, 0);
    EXPECT_EQ(where(), Whereabouts::Open);
}

TEST_F(ConclusionTest, WhatWasCancelledDependsOnWhatWasBooked)
{
    givenCancelled();
    EXPECT_EQ(why(), u"explainWhyCancelled"_s);
    givenExchange(u"register"_s, 0, 80241);
    EXPECT_EQ(why(), u"explainWhyCancelled"_s);
    givenExchange(u"register"_s, 6, 0);
    EXPECT_EQ(where(), Whereabouts::Unknown);
    givenExchange(u"rollback"_s, 6, 0);
    EXPECT_EQ(where(), Whereabouts::Unknown);
    givenExchange(u"rollback"_s, 0, 0);
    EXPECT_EQ(why(), u"explainWhyRolledBack"_s);
}

TEST_F(ConclusionTest, WithoutADocumentTheJournalDecides)
{
    evidence.document.clear();
    EXPECT_EQ(why(), u"explainWhyNoDocument"_s);
    givenExchange(u"register"_s, 0, 0);
    EXPECT_EQ(where(), Whereabouts::Booked);
    givenMessage(MessageState::Parked);
    EXPECT_EQ(where(), Whereabouts::Parked);
}

TEST_F(ConclusionTest, AReturnThatIsNotInTheQueueIsBooked)
{
    evidence.document
        = QSharedPointer<AbstractDocument>::create(EDocumentType::ReturnOfSale, u"7"_s);
    evidence.document->setState(EDocumentState::Closed);
    givenCard(u""_s);
    EXPECT_EQ(where(), Whereabouts::Booked);
    evidence.queueProblem = {u"id"_s, u"damaged"_s};
    EXPECT_EQ(where(), Whereabouts::Unknown);
}

TEST_F(ConclusionTest, AReturnThatWasNotBookedAtOnceAndIsNotInTheQueueIsUnknown)
{
    evidence.document
        = QSharedPointer<AbstractDocument>::create(EDocumentType::ReturnOfSale, u"7"_s);
    evidence.document->setState(EDocumentState::Closed);
    givenCard(u""_s);
    givenLine(u"exchange"_s, {{u"operation"_s, u"return"_s}, {u"error"_s, 0}});
    EXPECT_EQ(where(), Whereabouts::Unknown);
    EXPECT_EQ(why(), u"explainWhyForeign");
    givenExchange(u"return"_s, 6, 0);
    EXPECT_EQ(where(), Whereabouts::Unknown);
    EXPECT_EQ(why(), u"explainWhyNotQueued");
    givenExchange(u"return"_s, 0, 0);
    EXPECT_EQ(where(), Whereabouts::Booked);
}

TEST_F(ConclusionTest, EarlierAttemptsAreToldByTheLogAndTheLastByTheQueue)
{
    givenMessage(MessageState::Pending);
    evidence.messages.first().attempts = 2;
    evidence.messages.first().lastAttempt = at(80);
    evidence.messages.first().lastError = u"second"_s;
    evidence.log = {{at(70), u"INFO"_s, u"poshost.queue"_s,
                        u"message m of queue q, attempt 1: pending first"_s},
        {at(80), u"INFO"_s, u"poshost.queue"_s,
            u"message m of queue q, attempt 2: pending second"_s},
        {at(75), u"WARN"_s, u"poshost.queue"_s, u"the disk is full"_s}};
    QStringList told;
    for (const Step &step : stepsOf(evidence))
        told.append(sourceName(step.source) + u' ' + step.what);
    EXPECT_EQ(told,
        (QStringList{u"document opened"_s, u"document closed"_s, u"queue enqueued"_s,
            u"log attemptFailed"_s, u"log logged"_s, u"queue attemptFailed"_s}));
}

TEST_F(ConclusionTest, WhatHappenedWithinOneMillisecondIsToldInItsOrder)
{
    evidence.document->setStoredValue(u"KorvelLoyaltyOnline"_s, u"offlineMode"_s, true);
    givenClosingEvent();
    givenMessage(MessageState::Pending);
    evidence.messages.first().enqueued = evidence.document->getClosed();
    QStringList told;
    for (const Step &step : stepsOf(evidence))
        told.append(step.what);
    EXPECT_EQ(told, (QStringList{u"opened"_s, u"offline"_s, u"closed"_s, u"enqueued"_s}));
}

TEST_F(ConclusionTest, WhatTheJournalTellsTheLogDoesNotRepeat)
{
    evidence.log = {{at(30), u"ERROR"_s, u"korvelonline"_s, u"no answer"_s}};
    EXPECT_EQ(stepsOf(evidence).at(1).what, u"logged"_s);
    givenExchange(u"register"_s, 6, 0);
    for (const Step &step : stepsOf(evidence))
        EXPECT_NE(step.what, u"logged"_s);
}

} // namespace

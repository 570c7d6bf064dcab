#include "host/queue/delivery.h"

#include "host/config/config.h"
#include "host/framework/currenttime.h"
#include "host/net/restclient.h"
#include "host/queue/backoff.h"
#include "host/storage/filelock.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QRandomGenerator>

using namespace Qt::Literals::StringLiterals;

namespace delivery {

namespace {

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.queue"_s);
}

// Whether the service was not reached or did not answer, whatever the message was.
bool isConnectionFailure(int errorCode)
{
    switch (errorCode) {
    case RestClient::ConnectionRefused:
    case RestClient::NameNotResolved:
    case RestClient::TlsFailed:
    case RestClient::TimedOut:
    case RestClient::AnswerCut:
    case RestClient::BreakerOpen:
    case RestClient::ExchangeFailed:
        return true;
    default:
        return false;
    }
}

Verdict answered(int errorCode)
{
    return {
        errorCode == RestClient::None ? Verdict::Outcome::Delivered : Verdict::Outcome::TryAgain,
        {}, 0};
}

// A judge that fails must not end the pass: the message waits, and what went wrong stands with it.
Verdict judged(const VerdictFunction &judge, int errorCode, const QByteArray &body)
{
    if (!judge)
        return answered(errorCode);
    try {
        return judge(errorCode, body);
    } catch (const std::exception &error) {
        return {Verdict::Outcome::TryAgain, QString::fromUtf8(error.what()), 0};
    }
}

bool isUnauthorised(int errorCode)
{
    constexpr int unauthorised = 401;
    constexpr int forbidden = 403;
    return errorCode == unauthorised || errorCode == forbidden;
}

QDateTime currentTime()
{
    return MockFactory<CurrentTime>::create()->currentDateTime();
}

int days(const QString &setting, int usual)
{
    return qMax(0, Singleton<Config>::instance()->getInt(setting, usual));
}

// What a person needs who looks for the reason, whether the service's own or a proxy's.
QByteArray answerOf(const RestClient &client)
{
    return client.errorCode() == RestClient::None ? client.responseBody() : client.failedBody();
}

QSharedPointer<RestClient> exchange(const QueueMessage &message)
{
    auto client = MockFactory<RestClient>::create();
    client->setLogger(logger());
    client->post(QUrl(message.url), message.body, message.headers);
    return client;
}

/// One pass from its first message to its last.
class Pass
{
public:
    Pass(MessageStore &store, const QHash<QString, VerdictFunction> &verdicts, Extent extent,
        const DeliveryObserver &observer)
        : m_store(store)
        , m_verdicts(verdicts)
        , m_observer(observer)
        , m_isDueOnly(extent == Extent::Due)
        , m_stopsInRow(store.stopsInRow())
    { }

    DeliveryReport run()
    {
        auto next = taken(m_store.checkOut({currentTime(), 0, m_isDueOnly}));
        m_report.busy = !next && m_othersAtWork;
        while (next)
            next = send(*next);
        deleteOldOnes();
        return m_report;
    }

private:
    std::optional<QueueMessage> taken(const CheckedOut &next)
    {
        m_report.parked += next.parked;
        m_othersAtWork = next.othersAtWork;
        return next.message;
    }

    std::optional<QueueMessage> send(QueueMessage &message)
    {
        const auto client = exchange(message);
        const Verdict verdict
            = judged(m_verdicts.value(message.queue), client->errorCode(), client->responseBody());
        note(message, verdict, *client);
        m_report.unauthorised
            = verdict.outcome == Verdict::Outcome::TryAgain && isUnauthorised(client->errorCode());
        countReached(client->errorCode());
        const bool goesOn = !m_observer || m_observer(m_report);
        if (goesOn && !m_report.stopped && !m_report.unauthorised)
            return taken(
                m_store.settleAndCheckOut(message, {currentTime(), message.number, m_isDueOnly}));
        m_store.settle(message);
        return {};
    }

    void note(QueueMessage &message, const Verdict &verdict, const RestClient &client)
    {
        const QDateTime now = currentTime();
        message.lastError = verdict.text.isEmpty() ? client.errorMessage().ru() : verdict.text;
        message.lastCode = verdict.code != 0 ? verdict.code : client.errorCode();
        message.answer = answerOf(client).left(answerBytesKept);
        message.nextAttempt = now;
        switch (verdict.outcome) {
        case Verdict::Outcome::Delivered:
            settle(message, MessageState::Delivered, now);
            ++m_report.delivered;
            break;
        case Verdict::Outcome::Refused:
            settle(message, MessageState::Refused, now);
            ++m_report.refused;
            break;
        case Verdict::Outcome::TryAgain:
            keepWaiting(message, client.errorCode(), now);
            break;
        }
        logger()->info(u"message %1 of queue %2, attempt %3: %4 %5"_s.arg(message.id, message.queue,
            QString::number(message.attempts), stateName(message.state), message.lastError));
    }

    static void settle(QueueMessage &message, MessageState state, const QDateTime &now)
    {
        message.state = state;
        message.settled = now;
        message.answeredOtherwiseSince = {};
    }

    void keepWaiting(QueueMessage &message, int errorCode, const QDateTime &now)
    {
        message.state = MessageState::Pending;
        message.nextAttempt = backoff::nextAttempt(now, message.lastAttempt, message.attempts,
            QRandomGenerator::global()->generateDouble());
        // Wrong credentials are no fault of the message, nor is a service that does not answer.
        if (!isConnectionFailure(errorCode) && !isUnauthorised(errorCode))
            parkWhenAnsweredSoForLong(message, now);
        ++(message.state == MessageState::Parked ? m_report.parked : m_report.failed);
    }

    static void parkWhenAnsweredSoForLong(QueueMessage &message, const QDateTime &now)
    {
        constexpr int usualDays = 7;
        QDateTime &since = message.answeredOtherwiseSince;
        // A time in the future was noted before the clock was set back.
        if (!since.isValid() || since > now)
            since = now;
        const int patience = days(u"Queue:parkDays"_s, usualDays);
        if (since.addDays(patience) > now)
            return;
        message.state = MessageState::Parked;
        logger()->error(
            u"message %1 was parked: the service has neither accepted nor refused it "
            u"for %2 days: %3"_s.arg(message.id, QString::number(patience), message.lastError));
    }

    void countReached(int errorCode)
    {
        m_failuresInRow = isConnectionFailure(errorCode) ? m_failuresInRow + 1 : 0;
        m_report.stopped = m_failuresInRow == failuresToStop;
        // Asking on with credentials that are not accepted would get the till's user locked out.
        if (m_report.stopped || m_report.unauthorised) {
            const QDateTime now = currentTime();
            ++m_stopsInRow;
            m_store.hold(m_stopsInRow,
                backoff::nextAttempt(
                    now, now, m_stopsInRow, QRandomGenerator::global()->generateDouble()));
        } else if (m_failuresInRow == 0 && m_stopsInRow > 0) {
            m_stopsInRow = 0;
            m_store.release();
        }
    }

    // In small bites, so that an enqueueing till never waits for them.
    void deleteOldOnes()
    {
        m_store.deleteDelivered(keptSince());
        m_store.sumCounts();
    }

    MessageStore &m_store;
    const QHash<QString, VerdictFunction> &m_verdicts;
    const DeliveryObserver &m_observer;
    bool m_isDueOnly;
    bool m_othersAtWork = false;
    int m_failuresInRow = 0;
    int m_stopsInRow;
    DeliveryReport m_report;
};

} // namespace

QDateTime keptSince()
{
    constexpr int usualDays = 30;
    return currentTime().addDays(-days(u"Queue:keepDays"_s, usualDays));
}

DeliveryReport deliver(MessageStore &store, const QHash<QString, VerdictFunction> &verdicts,
    Extent extent, const DeliveryObserver &observer)
{
    DeliveryReport report;
    std::optional<FileLock> lock;
    if (!store.deliveryLock().isEmpty()) {
        lock.emplace(store.deliveryLock());
        report.busy = !lock->share();
    }
    const bool isHeld = extent == Extent::Due && !backoff::isDue(currentTime(), store.heldUntil());
    return report.busy || isHeld ? report : Pass(store, verdicts, extent, observer).run();
}

} // namespace delivery

#include "host/queue/delivery.h"

#include "host/framework/currenttime.h"
#include "host/net/restclient.h"
#include "host/storage/filelock.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

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
        {}};
}

// A judge that fails must not end the pass: the message waits, and what went wrong stands with it.
Verdict judged(const VerdictFunction &judge, int errorCode, const QByteArray &body)
{
    if (!judge)
        return answered(errorCode);
    try {
        return judge(errorCode, body);
    } catch (const std::exception &error) {
        return {Verdict::Outcome::TryAgain, QString::fromUtf8(error.what())};
    }
}

MessageState stateAfter(Verdict::Outcome outcome)
{
    switch (outcome) {
    case Verdict::Outcome::Delivered:
        return MessageState::Delivered;
    case Verdict::Outcome::Refused:
        return MessageState::Refused;
    case Verdict::Outcome::TryAgain:
        return MessageState::Pending;
    }
    return MessageState::Parked;
}

void count(DeliveryReport &report, Verdict::Outcome outcome)
{
    switch (outcome) {
    case Verdict::Outcome::Delivered:
        ++report.delivered;
        break;
    case Verdict::Outcome::Refused:
        ++report.refused;
        break;
    case Verdict::Outcome::TryAgain:
        ++report.failed;
        break;
    }
}

QSharedPointer<RestClient> exchange(const QueueMessage &message)
{
    auto client = MockFactory<RestClient>::create();
    client->setLogger(logger());
    client->post(QUrl(message.url), message.body, message.headers);
    return client;
}

void noteOutcome(QueueMessage &message, const Verdict &verdict, const RestClient &client)
{
    message.state = stateAfter(verdict.outcome);
    message.lastError = verdict.text.isEmpty() ? client.errorMessage().ru() : verdict.text;
    message.answer = client.responseBody().left(answerBytesKept);
    message.nextAttempt = MockFactory<CurrentTime>::create()->currentDateTime();
    logger()->info(u"message %1 of queue %2, attempt %3: %4 %5"_s.arg(message.id, message.queue,
        QString::number(message.attempts), stateName(message.state), message.lastError));
}

} // namespace

DeliveryReport deliverAll(MessageStore &store, const QHash<QString, VerdictFunction> &verdicts)
{
    DeliveryReport report;
    FileLock lock(store.fileName() + u".lock"_s);
    report.busy = !lock.tryLock();
    int failuresInRow = 0;
    auto message = report.busy ? std::nullopt : store.checkOut(0);
    while (message) {
        const auto client = exchange(*message);
        const Verdict verdict
            = judged(verdicts.value(message->queue), client->errorCode(), client->responseBody());
        noteOutcome(*message, verdict, *client);
        store.settle(*message);
        count(report, verdict.outcome);
        failuresInRow = isConnectionFailure(client->errorCode()) ? failuresInRow + 1 : 0;
        report.stopped = failuresInRow == failuresToStop;
        message = report.stopped ? std::nullopt : store.checkOut(message->number);
    }
    return report;
}

} // namespace delivery

#include "emulator/recording/recorder.h"

#include "emulator/recording/cardmask.h"
#include "emulator/recording/credentials.h"
#include "emulator/recording/recordingerror.h"
#include "emulator/recording/requestkey.h"
#include "emulator/recording/tell.h"
#include "emulator/recording/tillsonly.h"

#include <boost/asio/post.hpp>
#include <boost/asio/thread_pool.hpp>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

// They wait for the network most of the time; more tills than this wait for each other.
constexpr std::size_t exchangesAtOnce = 256;

HttpReply replyOf(const UpstreamAnswer &answer)
{
    HttpReply reply;
    if (!answer.failure.isEmpty()) {
        reply.delivery = Delivery::Nothing;
        return reply;
    }
    reply.status = answer.status;
    reply.contentType = answer.contentType;
    reply.body = answer.body;
    return reply;
}

void maskCards(RecordedExchange &exchange)
{
    const QList<QByteArray> numbers = cardNumbersIn(exchange.request + exchange.answer);
    exchange.hasMaskedCards = true;
    exchange.card = QString::fromUtf8(maskedNumber(exchange.card.toUtf8()));
    exchange.request = withMasked(exchange.request, numbers);
    exchange.answer = withMasked(exchange.answer, numbers);
    for (auto &[name, value] : exchange.requestHeaders)
        value = withMasked(value, numbers);
}

void crossOut(RecordedExchange &exchange, const QByteArray &credentials)
{
    exchange.request = withoutCredentials(exchange.request, credentials);
    exchange.answer = withoutCredentials(exchange.answer, credentials);
    for (auto &[name, value] : exchange.requestHeaders)
        value = withoutCredentials(value, credentials);
}

void tellAbout(const RecordedExchange &exchange)
{
    const QString outcome = exchange.status ? QString::number(*exchange.status)
                                            : u"no answer (%1)"_s.arg(exchange.failure);
    tell(u"%1 %2 %3 %4 %5 ms"_s.arg(exchange.time.toString(Qt::ISODateWithMs), exchange.name(),
        exchange.card.isEmpty() ? u"-"_s : exchange.card, outcome,
        QString::number(exchange.timeTaken.count())));
}

} // namespace

Recorder::Recorder(const RecorderSettings &settings)
    : m_masksCards(settings.masksCards)
    , m_folder(settings.folder)
    , m_upstream(settings.upstream)
    , m_threads(std::make_unique<boost::asio::thread_pool>(exchangesAtOnce))
{ }

Recorder::~Recorder()
{
    stop();
}

void Recorder::answer(const HttpRequest &request, const Respond &respond)
{
    if (const auto reply = replyToOthers(request)) {
        respond(*reply);
        return;
    }
    QElapsedTimer time;
    time.start();
    boost::asio::post(*m_threads, [this, request, respond, exchange = begun(request), time] {
        pass(request, respond, exchange, time);
    });
}

void Recorder::stop()
{
    m_upstream.cancel();
    m_threads->join();
}

RecordedExchange Recorder::begun(const HttpRequest &request)
{
    const RequestKey key = keyOf(request.body, m_schema);
    RecordedExchange exchange;
    exchange.number = m_folder.takeNumber();
    exchange.time = QDateTime::currentDateTimeUtc();
    exchange.operation = key.operation;
    exchange.card = key.card;
    exchange.requestHeaders = headersWithoutCredentials(request);
    exchange.request = request.body;
    return exchange;
}

void Recorder::pass(const HttpRequest &request, const Respond &respond, RecordedExchange exchange,
    const QElapsedTimer &time) const
{
    const UpstreamAnswer answer = m_upstream.forward(request);
    exchange.timeTaken = std::chrono::milliseconds(time.elapsed());
    // First of all: the till waits, and the disk may be slow or full.
    respond(replyOf(answer));
    exchange.failure = answer.failure;
    if (answer.failure.isEmpty())
        exchange.status = answer.status;
    exchange.contentType = answer.contentType;
    exchange.answer = answer.body;
    crossOut(exchange, credentialsOf(m_upstream.authorizationFor(request)));
    keep(std::move(exchange));
}

void Recorder::keep(RecordedExchange exchange) const
{
    if (m_masksCards)
        maskCards(exchange);
    tellAbout(exchange);
    try {
        m_folder.write(exchange);
    } catch (const RecordingError &error) {
        tell(u"korvel-service: EXCHANGE %1 IS NOT RECORDED: %2; the till was answered"_s.arg(
            QString::number(exchange.number), QString::fromUtf8(error.what())));
    }
}

} // namespace emulator

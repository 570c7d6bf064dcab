#include "emulator/recording/replay.h"

#include "emulator/http/status.h"
#include "emulator/recording/cardmask.h"
#include "emulator/recording/tell.h"
#include "emulator/recording/tillsonly.h"
#include "emulator/soap/answerwriter.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

bool holdsMaskedCards(const Recording &recording)
{
    return std::any_of(recording.exchanges.begin(), recording.exchanges.end(),
        [](const RecordedExchange &exchange) { return exchange.hasMaskedCards; });
}

HttpReply replyOf(const RecordedExchange &exchange, const QByteArray &request)
{
    HttpReply reply;
    if (!exchange.status) {
        reply.delivery = Delivery::Nothing;
        return reply;
    }
    reply.status = *exchange.status;
    reply.contentType = exchange.contentType;
    reply.body = exchange.hasMaskedCards ? withUnmasked(exchange.answer, cardNumbersIn(request))
                                         : exchange.answer;
    return reply;
}

} // namespace

Replay::Replay(Recording recording, bool withTimes)
    : m_recording(std::move(recording))
    , m_withTimes(withTimes)
    , m_comparesMasked(holdsMaskedCards(m_recording))
    , m_wasAskedFor(m_recording.exchanges.size())
{
    for (std::size_t index = 0; index < m_recording.exchanges.size(); ++index)
        take(index);
}

void Replay::take(std::size_t index)
{
    const RecordedExchange &exchange = m_recording.exchanges[index];
    const RequestKey key = keyOfMasked(exchange.request);
    m_requests.push_back({exchange.name(), key});
    m_courses[key].exchanges.push_back(index);
}

RequestKey Replay::keyOfMasked(const QByteArray &request) const
{
    return keyOf(
        m_comparesMasked ? withMasked(request, cardNumbersIn(request)) : request, m_schema);
}

HttpReply Replay::answer(const HttpRequest &request)
{
    if (const auto reply = replyToOthers(request))
        return *reply;
    const RequestKey asked = keyOfMasked(request.body);
    const auto course = m_courses.find(asked);
    return course == m_courses.end() ? notMatched(asked) : next(*course, request.body);
}

HttpReply Replay::next(Course &course, const QByteArray &request)
{
    ++m_matched;
    const std::size_t index = course.exchanges[course.next];
    course.next = std::min(course.next + 1, course.exchanges.size() - 1);
    m_wasAskedFor[index] = true;
    const RecordedExchange &exchange = m_recording.exchanges[index];
    HttpReply reply = replyOf(exchange, request);
    if (m_withTimes)
        reply.delay = exchange.timeTaken;
    return reply;
}

HttpReply Replay::notMatched(const RequestKey &asked)
{
    ++m_notMatched;
    const QString complaint = u"no answer was recorded for %1; %2"_s.arg(
        description(asked), nearestTo(asked, m_requests));
    tell(u"korvel-service: "_s + complaint);
    HttpReply reply;
    reply.status = httpstatus::serverError;
    reply.contentType = "text/xml; charset=utf-8";
    reply.body = writeFault(FaultOrigin::Server, complaint);
    return reply;
}

QString Replay::neverAskedFor() const
{
    QStringList names;
    for (std::size_t index = 0; index < m_wasAskedFor.size(); ++index) {
        if (!m_wasAskedFor[index])
            names.append(m_requests[index].name);
    }
    return names.isEmpty() ? u"0"_s : u"%1 (%2)"_s.arg(names.size()).arg(names.join(u", "_s));
}

QString Replay::summary() const
{
    return u"matched %1, not matched %2, recorded but never asked for: %3"_s.arg(m_matched)
        .arg(m_notMatched)
        .arg(neverAskedFor());
}

} // namespace emulator

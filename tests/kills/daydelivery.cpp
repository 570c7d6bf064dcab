// The deliverer of a day, how it is killed, and what is done wrong on purpose.

#include "tests/kills/day.h"
#include "tests/kills/trouble.h"
#include "tests/restart/socket.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using restart::Manner;
using restart::Moment;

// A message that is not delivered by then never will be.
constexpr int greatestDeliveries = 5;

Moment momentOf(Manner manner)
{
    switch (manner) {
    case Manner::Asked:
        return Moment::Asked;
    case Manner::Acted:
        return Moment::Acted;
    default:
        return Moment::Answered;
    }
}

bool isWaiting(const Message &message)
{
    return message.state == u"pending" || message.state == u"sending";
}

auto counted(const std::vector<Message> &queue, bool (*predicate)(const Message &))
{
    return static_cast<int>(std::count_if(queue.begin(), queue.end(), predicate));
}

bool isFresh(const Message &message)
{
    return isWaiting(message) && message.attempts == 0;
}

bool isParked(const Message &message)
{
    return message.state == u"parked";
}

void sendOnce(quint16 port, const QByteArray &request)
{
    const auto service = restart::Socket::connectedTo(port);
    service.send(request);
    QByteArray answer;
    while (service.receive(answer) == restart::Socket::Received::Bytes) { }
}

} // namespace

void Day::deliver(const std::optional<Strike> &strike)
{
    if (strike && killDelivererAt(*strike))
        return;
    if (strike) {
        // Nobody was there to be killed.
        m_till->kill();
        m_ends.push_back(m_till->end(true));
        countKill(Victim::Till, Manner::After);
        restartTill();
        checkWhatWasAcknowledged();
    }
    order(trouble::ofDelivery(m_dice));
    deliverQuietly({u"deliver"_s});
    m_service.orderFault("clear");
}

void Day::deliverQuietly(const QStringList &words)
{
    Deliverer deliverer(m_premises, m_deliverersMachine.environment(), words);
    deliverer.awaitEnd();
}

// The delivery service goes on for ever, so it is killed behind its first pass at the latest.
bool Day::killDelivererAt(const Strike &strike)
{
    const auto queue = queueBook(m_premises.state());
    const int waiting = counted(queue, &isWaiting);
    if (waiting == 0)
        return false;
    order(trouble::ofDelivery(m_dice));
    const bool watches = counted(queue, &isFresh) > 0 && m_dice.falls(50);
    Deliverer deliverer(
        m_premises, m_deliverersMachine.environment(), {watches ? u"watch"_s : u"deliver"_s});
    Strike possible = strike;
    if (possible.manner != Manner::Written)
        possible.occasion = std::min(possible.occasion, waiting);
    orderStrike(possible, [&deliverer] { deliverer.strikeDead(); });
    if (watches) {
        deliverer.awaitLine();
        deliverer.strikeDead();
    }
    deliverer.awaitEnd();
    forgetStrike();
    m_service.orderFault("clear");
    if (!deliverer.wasKilled())
        return false;
    countKill(Victim::Deliverer, strike.manner);
    checkWhatWasAcknowledged();
    return true;
}

void Day::orderStrike(const Strike &strike, std::function<void()> kill)
{
    if (strike.manner == Manner::Written)
        m_watch->strikeAt(strike.occasion, std::move(kill));
    else if (strike.manner != Manner::After)
        m_relay.strikeAt(strike.occasion, momentOf(strike.manner), std::move(kill));
}

void Day::forgetStrike()
{
    m_watch->strikeAt(0, {});
    m_relay.forgetStrike();
}

// What was parked, since two deliverers died of it, a person takes up again.
void Day::deliverAll()
{
    for (int pass = 0; pass < greatestDeliveries; ++pass) {
        const auto queue = queueBook(m_premises.state());
        if (const int parked = counted(queue, &isParked); parked > 0) {
            m_report.tally.parked += parked;
            deliverQuietly({u"retry"_s, u"--state-of"_s, u"parked"_s});
        }
        if (counted(queue, &isWaiting) + counted(queue, &isParked) > 0)
            deliverQuietly({u"deliver"_s});
    }
}

// The second copy is another till's for the service when it is to be booked.
void Day::doWrong(const QByteArray &request) const
{
    QByteArray copy = request;
    if (m_wrong == Wrong::BookedTwice)
        copy.replace("<POS>1-1</POS>", "<POS>1-2</POS>");
    if (m_wrong == Wrong::BookedTwice || m_wrong == Wrong::PostDoubled)
        sendOnce(m_premises.servicePort(), copy);
}

} // namespace kills

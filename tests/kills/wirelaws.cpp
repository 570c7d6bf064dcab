// What went to the service, and what stood on the till's disk by then.

#include "tests/kills/laws.h"

#include <QHash>

#include <algorithm>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace kills::laws {

namespace {

using namespace std::chrono_literals;

// As in kills.ini; what is delivered has the host's own limit.
constexpr std::chrono::microseconds tillsLimit = 1s;
constexpr std::chrono::microseconds deliverersLimit = 15s;
constexpr std::chrono::microseconds grace = 250ms;

// What the till's documents and the queue's attempts allow of each request.
QHash<QByteArray, int> attemptsOf(const Evidence &evidence)
{
    QHash<QByteArray, int> attempts;
    for (const Message &message : evidence.queue)
        attempts[message.body] += message.attempts;
    std::set<std::pair<QByteArray, int>> asked;
    for (const Sighting &sighting : evidence.sightings)
        if (sighting.backing != Backing::Message
            && asked.emplace(sighting.body, sighting.step).second)
            ++attempts[sighting.body];
    return attempts;
}

QHash<QByteArray, int> copiesOf(const Json &exchanges)
{
    QHash<QByteArray, int> copies;
    for (const Json &exchange : exchanges)
        ++copies[QByteArray::fromStdString(exchange.at("request"))];
    return copies;
}

QString shortened(const QByteArray &body)
{
    constexpr qsizetype shown = 4000;
    return QString::fromUtf8(body.left(shown)).simplified();
}

QStringList overrun(
    const QString &who, std::chrono::microseconds taken, std::chrono::microseconds limit)
{
    if (taken <= limit + grace)
        return {};
    return {u"an exchange of %1 took %2 ms"_s.arg(who).arg(taken / 1ms)};
}

} // namespace

QStringList nothingIsUnrecorded(const Evidence &evidence)
{
    QStringList wrong;
    for (const Sighting &sighting : evidence.sightings)
        if (sighting.backing == Backing::Nothing)
            wrong.append(u"nothing was written down of %1"_s.arg(shortened(sighting.body)));
    return wrong;
}

QStringList copiesAreAttempts(const Evidence &evidence)
{
    QStringList wrong;
    const auto attempts = attemptsOf(evidence);
    const auto copies = copiesOf(evidence.exchanges);
    for (auto copy = copies.cbegin(); copy != copies.cend(); ++copy)
        if (const int allowed = attempts.value(copy.key()); copy.value() > allowed)
            wrong.append(u"the service has got %1 copies, %2 attempts stand written down, of %3"_s
                             .arg(copy.value())
                             .arg(allowed)
                             .arg(shortened(copy.key())));
    return wrong;
}

QStringList copiesAreEqual(const Evidence &evidence)
{
    // Beside the others that went out also what is in the queue now.
    QHash<QString, QByteArray> bodies;
    for (const Message &message : evidence.queue)
        bodies[message.id] = message.body;
    QStringList wrong;
    for (const Sighting &sighting : evidence.sightings)
        if (!sighting.message.isEmpty()) {
            const QByteArray former = std::exchange(bodies[sighting.message], sighting.body);
            if (!former.isEmpty() && former != sighting.body)
                wrong.append(u"message %1 went out with other bytes"_s.arg(sighting.message));
        }
    return wrong;
}

QStringList callsEndInTime(const Evidence &evidence)
{
    return overrun(u"a till"_s, evidence.tillsLongest, tillsLimit)
        + overrun(u"a deliverer"_s, evidence.deliverersLongest, deliverersLimit);
}

} // namespace kills::laws

#pragma once

#include "tests/kills/evidence.h"

#include <QStringList>

#include <array>
#include <map>

namespace kills {

/// What must be true however often somebody was killed. Each function returns what is wrong, a
/// plain sentence for each thing; nothing when all is well.
namespace laws {

/// Every document that the till has said to be closed is among its documents, and, where it has a
/// loyalty card, at the service or in the queue. Holds at any moment.
QStringList acknowledgedIsKept(const Evidence &evidence);
/// The journal, the documents and the service name the same closed and cancelled documents, and the
/// service has nothing that the journal does not.
QStringList journalAgrees(const Evidence &evidence);
/// Every cheque is booked once with the same figures, points and stickers add up, no file is torn.
QStringList booksAgree(const Evidence &evidence);
/// Nothing went out that did not stand on the till's disk before.
QStringList nothingIsUnrecorded(const Evidence &evidence);
/// The service has got no request more often than attempts stand written down for it.
QStringList copiesAreAttempts(const Evidence &evidence);
/// Everything that went out of a queued message were the bytes that were queued.
QStringList copiesAreEqual(const Evidence &evidence);
/// No exchange took longer than its limit and a quarter of a second.
QStringList callsEndInTime(const Evidence &evidence);

/// A law with its name for people.
struct Law
{
    const char *name;
    QStringList (*violations)(const Evidence &evidence);
};

inline constexpr std::array all{
    Law{"every acknowledged operation is at the service, in the queue or parked",
        &acknowledgedIsKept},
    Law{"journal, documents and service tell of the same cheques", &journalAgrees},
    Law{"booked once, with the same points and sums; balances add up; no file is torn",
        &booksAgree},
    Law{"nothing goes out that the till has not written down before", &nothingIsUnrecorded},
    Law{"copies at the service are at most the attempts written down", &copiesAreAttempts},
    Law{"all copies of a queued message have its bytes", &copiesAreEqual},
    Law{"no exchange takes longer than its limit and 250 ms", &callsEndInTime}};

} // namespace laws

/// The books without the documents whose messages are refused or parked: those are nobody's loss
/// until a person has looked. Nor are the
/// beginnings of files that nobody reads.
restart::Books settledBooks(const Evidence &evidence);
/// How many documents wait so, by the code that the service answers.
std::map<int, int> waitingForPerson(const Evidence &evidence);

} // namespace kills

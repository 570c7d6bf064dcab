#pragma once

#include "tests/kills/journalbook.h"
#include "tests/kills/queuebook.h"
#include "tests/kills/witness.h"
#include "tests/restart/books.h"

#include <QSet>
#include <QString>

#include <chrono>
#include <vector>

namespace kills {

using restart::Json;

/// The three books of a day, and what was seen of it.
struct Evidence
{
    QSet<QString> acknowledged; ///< numbers of the documents that the till has said to be closed
    QSet<QString> takenBack; ///< numbers of those that it has said to be cancelled
    JournalBook journal;
    std::vector<Message> queue;
    restart::Books books; ///< the till's documents and the service's bookings
    Json exchanges; ///< of the service
    std::vector<Sighting> sightings;
    /// Longest exchange of the till, whose limit is `timeout`, and of a deliverer.
    std::chrono::microseconds tillsLongest{};
    std::chrono::microseconds deliverersLongest{};
};

} // namespace kills

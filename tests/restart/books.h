#pragma once

#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace restart {

/// What till and service have written down by the end, as they have written it.
struct Books
{
    std::vector<Json> closed; ///< the till's closed documents
    bool hasOpenDocument = false;
    QStringList undelivered; ///< messages of the outgoing queue, each with its state
    QStringList tornFiles; ///< JSON files of the state folder that cannot be read
    QStringList temporaryFiles; ///< files of the state folder that were to replace another
    std::vector<TillEnd> ends; ///< of all tills that were started
    Json transactions; ///< the service's sales and returns
    Json cards; ///< the service's cards, each with its ledger
    Json audit; ///< what the service says to its books
};

/// Adds what is on disk. No till is running.
/// @throws std::runtime_error when the queue cannot be read.
void readStateFolder(const QString &folder, Books &books);
/// Adds what the service says.
/// @throws std::runtime_error when it does not answer.
void readService(const Service &service, Books &books);

/// Messages of the outgoing queue that are not delivered, each with its state.
/// @throws std::runtime_error when the queue cannot be read.
QStringList undeliveredMessages(const QString &stateFolder);

} // namespace restart

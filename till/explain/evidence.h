#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/tr.h"
#include "host/queue/queuemessage.h"

#include <QDateTime>
#include <QJsonObject>
#include <QList>
#include <QSharedPointer>
#include <QString>

namespace till::explain {

/// A line of the journal.
struct JournalLine
{
    QDateTime time;
    QString correlationId;
    QString document; ///< number
    QString kind;
    QJsonObject members; ///< all of them
};

/// A line of the program's log.
struct LogLine
{
    QDateTime time; ///< local: the log tells no zone
    QString level;
    QString logger;
    QString text;
};

/// Everything that is kept of one document.
struct Evidence
{
    QString number;
    QString correlationId;
    QSharedPointer<AbstractDocument> document; ///< null: none is kept
    QList<JournalLine> journal;
    QList<QueueMessage> messages;
    tr::Tr queueProblem; ///< why the queue could not be asked; empty: it was
    QList<LogLine> log; ///< what may concern it: by its messages' ids, or by its time
    QList<Evidence> returns; ///< the closed returns that refer to it
};

/// What was found for a question.
struct Findings
{
    QList<Evidence> documents; ///< in the order of time
    bool isMore = false; ///< older documents of the card are left out
    QList<tr::Tr> remarks; ///< what is wrong with the sources
    QStringList searched; ///< files and folders
};

} // namespace till::explain

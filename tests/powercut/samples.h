#pragma once

#include "host/documents/abstractdocument.h"

#include <QByteArray>
#include <QSharedPointer>
#include <QString>

/// What the subject writes, a pure function of seed and name, so that it can be known again.
namespace powercut::samples {

/// Where the subject's till keeps its state, below the recorded folder, which is there and empty.
inline const QString stateFolder = QStringLiteral("shop/till");

/// A document as it is at its n-th change: up to some 20 KB of positions, another lot each time.
/// @param version counts from 1.
QSharedPointer<AbstractDocument> document(
    quint32 seed, const QString &number, int version, EDocumentState state);
/// "17/3": number and version of a document that is as it was made; "17/damaged" for every other.
QString nameOf(quint32 seed, AbstractDocument &document);

/// The kind of the subject's lines in the journal.
inline const QString journalKind = QStringLiteral("event");
/// What the n-th line of the journal tells: up to some 4 KB.
QString journalText(quint32 seed, int line);

/// The body of the n-th message that the subject enqueues: 1 to 60 KB.
QByteArray body(quint32 seed, int message);
/// Which message a body belongs to, as far as its beginning tells.
int messageOf(const QByteArray &body);
/// Whether the disk is full when that message is enqueued; it is a short one then.
bool comesWithFullDisk(int message);

} // namespace powercut::samples

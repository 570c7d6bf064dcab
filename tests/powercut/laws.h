#pragma once

#include "tests/powercut/marker.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// What must be true when a till is started on what a power cut has left. Each function returns
/// what is wrong, a sentence for each thing; nothing when all is well. It uses the state folder as
/// the till does, and so changes it.
namespace powercut::laws {

/// Documents are the old or the new ones, whole, and no number is given twice.
/// @param folder below which the subject's state folder is.
QStringList documentsAreKept(const QString &folder, quint32 seed, const Story &story);

/// Every line of the journal that is there whole is as it was written and in its place, and none is
/// missing that the system had written back.
QStringList journalIsKept(const QString &folder, quint32 seed, const Story &story);
/// The next line of the journal is whole, whatever was torn before it, and changes nothing there.
/// In the state folder that is set.
QStringList journalGoesOn();
/// The same of a journal before and after a line of this kind was appended.
QStringList journalWentOn(const QByteArray &before, const QByteArray &after);
inline const QString kindOfNextLine = QStringLiteral("restart");

/// The queue opens undamaged with every message in it, and goes on delivering.
QStringList messagesAreKept(const QString &folder, quint32 seed, const Story &story);

} // namespace powercut::laws

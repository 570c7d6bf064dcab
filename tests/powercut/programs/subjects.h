#pragma once

#include "tests/powercut/samples.h"

namespace powercut {

/// Opens, changes, closes and cancels documents, and journals. Marks "given NUMBER",
/// "saved NUMBER VERSION", "closed NUMBER VERSION", "cancelled NUMBER", "restarted".
/// @param plainly whether documents are written straight to their file, as they must not be.
void keepDocuments(quint32 seed, bool plainly);

/// Appends lines to the journal. Marks "noted LINE", and "settled LINE" when all up to that one are
/// on disk, as the system sees to by itself after some seconds.
/// @param plainly whether the journal is written anew for each line, as it must not be.
void keepJournal(quint32 seed, bool plainly);

/// Enqueues messages and delivers to a service of its own on loopback. Marks "enqueued MESSAGE",
/// "attempted MESSAGE OUTCOME" when the service has it and nobody has noted that yet, "passed" when
/// a delivery returned, "restarted".
void keepMessages(quint32 seed);

/// Makes a folder, and in it a file that is written, replaced, moved and removed by the host's
/// functions. Marks "made", "written", "rewritten", "moved", "removed".
void replaceFiles();

/// Starts on what a power cut has left, and ends.
void resume();

} // namespace powercut

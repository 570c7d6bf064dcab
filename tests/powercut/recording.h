#pragma once

#include "tests/powercut/record.h"
#include "tests/powercut/tree.h"

#include <QStringList>

namespace powercut {

/// What a program did to the files below a folder.
struct Recording
{
    std::vector<Record> records;
    Tree left; ///< what the folder holds in the end
    Tree before; ///< what it held when the program started
};

/// Runs a program under the recorder to its end.
/// @param words    its arguments; "FOLDER" stands for the recorded folder.
/// @param swallows what the disk only says to be synced: "folders", or the end of files' names;
///                 empty for an honest disk.
/// @param before   what the folder holds when it starts.
/// @throws std::runtime_error when the program does not end in order.
Recording record(const QString &program, QStringList words, const QString &swallows = {},
    const Tree &before = {});

/// What the subject did to documents, the journal or the queue.
/// @param work   "documents", "files", "journal" or "queue".
/// @param manner "plainly": documents and journal are written as one must not.
Recording recordSubject(
    const QString &work, quint32 seed, const QString &swallows = {}, const QString &manner = {});

/// What the subject does when it starts on what a power cut has left.
Recording recordResuming(const Tree &left);

/// Where replaying costs least: synced calls cost nothing in memory.
QString fastFolder();

} // namespace powercut

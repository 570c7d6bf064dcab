#pragma once

#include "tests/powercut/record.h"

#include <QString>

#include <map>
#include <ostream>
#include <vector>

namespace powercut {

/// The flushes of the disk that one step of a recorded program took.
struct FlushStep
{
    QString name;
    /// How often each file or folder was flushed, by its path below the recorded folder. A file
    /// that is to replace another one counts under its name of then: "document.json.new".
    std::map<QString, int> flushes;

    [[nodiscard]] int sum() const;
};

/// Flushes by step. A till ends a step with the line of its transcript; what comes behind the last
/// one is a step named `endStep`.
/// @param transcript its path below the recorded folder.
/// @throws std::runtime_error when a line of the transcript is none, or an opening is unknown.
std::vector<FlushStep> flushSteps(const std::vector<Record> &records, const QByteArray &transcript);

inline const QString endStep = QStringLiteral("(end)");

/// A table for people: for each step its flushes, its name and which files they were of, and behind
/// each step that ends a document the sum of its steps.
void printFlushes(std::ostream &out, const std::vector<FlushStep> &steps);

/// Sells the cheques of a script with a till and a service of their own, under the recorder.
/// @param script a file as `korvel-till run` takes it.
/// @throws std::runtime_error when the till does not end with 0.
std::vector<FlushStep> flushesOf(const QString &script);

} // namespace powercut

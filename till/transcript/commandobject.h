#pragma once

#include "host/documents/abstractdocument.h"
#include "till/core/outcome.h"
#include "till/transcript/json.h"
#include "till/transcript/recorder.h"

namespace till {

/// A command that was executed, with everything that came of it.
struct ExecutedCommand
{
    int line = 0; ///< from 1
    QString name; ///< the command's
    QString text; ///< the whole line, trimmed
    Outcome outcome;
    Recording recording;
    QSharedPointer<AbstractDocument> document; ///< the open one, or the one just left; may be null
};

/// The command's object of the transcript, with the members that `docs/till.md` lists.
[[nodiscard]] Json commandObject(const ExecutedCommand &command);

} // namespace till

#pragma once

#include "host/export.h"

#include <QtGlobal>

/// Keeps `SaveToFileLogic` from writing the open document's file as long as it lives.
///
/// For an operation that changes a document in several steps, of which the plug-in's is one: what
/// the plug-in saves then is half of the operation, and a till that is killed there would go on
/// with that half. Who holds the document writes it when the operation is complete; a till that is
/// killed before goes on from before the operation. Nests. On the host's thread.
class POSHOST_EXPORT OpenDocumentHold
{
public:
    OpenDocumentHold();
    ~OpenDocumentHold();
    Q_DISABLE_COPY_MOVE(OpenDocumentHold)

    /// Whether one lives.
    [[nodiscard]] static bool isHeld();
};

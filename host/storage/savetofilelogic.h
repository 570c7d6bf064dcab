#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/mockfactory.h"

#include <QString>

/// Keeps documents on disk. `MockFactory<SaveToFileLogic>::create()`.
class POSHOST_EXPORT SaveToFileLogic
{
public:
    SaveToFileLogic() = default;
    virtual ~SaveToFileLogic();
    Q_DISABLE_COPY_MOVE(SaveToFileLogic)

    /// Writes the document to the state folder, replacing what was there in one step: after a power
    /// cut either the old or the new document is there, whole.
    ///
    /// When the open document's file goes is the till's decision alone. So a document that is
    /// closed or cancelled is written there only while the file still holds this very document;
    /// a loyalty system that saves it once more later does not bring it back as an open one.
    /// While an `OpenDocumentHold` lives the open document's file is left as it is, without an
    /// error: the holder writes it.
    /// @param document never null.
    /// @param fileName name within the state folder; empty: the open document's own file.
    /// @throws BasicException when it could not be written; the old file is then untouched.
    virtual void save(const QSharedPointer<AbstractDocument> &document, const QString &fileName);
};

extern template class POSHOST_EXPORT MockFactory<SaveToFileLogic>;

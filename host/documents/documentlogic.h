#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/mockfactory.h"

#include <QList>
#include <QObject>

/// Questions about documents. `MockFactory<DocumentLogic>::create()`.
class POSHOST_EXPORT DocumentLogic
{
public:
    DocumentLogic() = default;
    virtual ~DocumentLogic();
    Q_DISABLE_COPY_MOVE(DocumentLogic)

    /// The objects that describe a document to masks: the document itself (object name "document")
    /// and its card's client (object name "client") where there is one. Not owned by the caller;
    /// valid while the document lives unchanged.
    /// @param document null: the current one of the session; without a current one the list is
    /// empty.
    [[nodiscard]] virtual QList<QObject *> getObjects(
        const QSharedPointer<AbstractDocument> &document) const;
};

extern template class POSHOST_EXPORT MockFactory<DocumentLogic>;

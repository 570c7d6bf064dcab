#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/singleton.h"

/// Makes documents. `Singleton<DocumentFactory>::instance()`.
class POSHOST_EXPORT DocumentFactory
{
public:
    DocumentFactory() = default;
    virtual ~DocumentFactory();
    Q_DISABLE_COPY_MOVE(DocumentFactory)

    /// A copy for sending: type, number, place, positions with their sums, coupons, card records
    /// with operation id and information, the referenced number and the stored values. Changing it
    /// leaves the original as it is.
    /// @param document never null.
    [[nodiscard]] virtual QSharedPointer<AbstractDocument> makeDocument(
        const QSharedPointer<AbstractDocument> &document) const;
};

extern template class POSHOST_EXPORT Singleton<DocumentFactory>;

#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/singleton.h"

#include <QSharedPointer>

/// The cashier's session: which document is the current one. `Singleton<Session>::instance()`.
///
/// The base classes, the plug-ins and the till all take the current document from here.
class POSHOST_EXPORT Session
{
public:
    Session() = default;
    virtual ~Session();
    Q_DISABLE_COPY_MOVE(Session)

    /// Null at an empty desk.
    [[nodiscard]] virtual QSharedPointer<AbstractDocument> getCurrentDocument() const;
    virtual void setCurrentDocument(const QSharedPointer<AbstractDocument> &document);

private:
    QSharedPointer<AbstractDocument> m_currentDocument;
};

extern template class POSHOST_EXPORT Singleton<Session>;

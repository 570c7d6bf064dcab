#include "host/framework/session.h"

template class Singleton<Session>;

Session::~Session() = default;

QSharedPointer<AbstractDocument> Session::getCurrentDocument() const
{
    return m_currentDocument;
}

void Session::setCurrentDocument(const QSharedPointer<AbstractDocument> &document)
{
    m_currentDocument = document;
}

#include "benchmarks/till/workplace.h"

#include "host/framework/session.h"
#include "host/logging/logsetup.h"
#include "host/storage/statefolder.h"

#include <QDir>

Workplace::Workplace()
{
    auto *const folder = Singleton<StateFolder>::instance();
    folder->setPath(QDir(m_folder.path()).absolutePath());
    logging::setUp(folder->log(), {});
}

void Workplace::open(const QSharedPointer<AbstractDocument> &document)
{
    Singleton<Session>::instance()->setCurrentDocument(document);
}

#include "till/explain/place.h"

#include "host/config/config.h"
#include "host/storage/privacy.h"
#include "host/storage/storageerror.h"
#include "till/configuration.h"
#include "till/explain/unreadable.h"
#include "till/support/versions.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till::explain {

Place::Place(const ExplainOptions &options)
{
    privacy::leaveNoCore();
    readConfiguration(options.configFile);
    if (options.bundle.isEmpty())
        openFolder(options);
    else
        openArchive(options.bundle);
}

void Place::openArchive(const QString &fileName)
{
    m_archive = fileName;
    m_bundle = std::make_unique<support::UnpackedBundle>(fileName);
    m_stateFolder = m_bundle->stateFolder();
    m_messages = messagesOfArchive(m_bundle->messagesFile());
    m_technicalCardName = m_bundle->technicalCardName();
}

void Place::openFolder(const ExplainOptions &options)
{
    m_stateFolder = till::stateFolder(options.stateFolder);
    const QFileInfo folder(m_stateFolder);
    if (!folder.isDir())
        throw StorageError(tr::Tr(u"stateFolderMissing"_s,
            u"%1: нет такой рабочей папки; укажите папку кассы через --state или в Till:state"_s)
                               .arg(m_stateFolder));
    if (!folder.isReadable() || !folder.isExecutable())
        throw unreadable(m_stateFolder, folder.owner());
    m_messages = messagesOfQueue(QueueSite::configured(m_stateFolder + u"/queue"_s));
    m_technicalCardName = support::technicalCardName();
}

QString Place::shown(const QString &path) const
{
    return isArchive() ? m_archive + u": "_s + QDir(m_stateFolder).relativeFilePath(path) : path;
}

} // namespace till::explain

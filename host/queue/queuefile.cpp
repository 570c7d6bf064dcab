#include "host/queue/queuefile.h"

#include "host/queue/newqueuefile.h"
#include "host/queue/queuecheck.h"
#include "host/queue/queueerror.h"
#include "host/queue/queuelayout.h"
#include "host/queue/salvage/salvage.h"
#include "host/queue/setaside.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFileInfo>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::chrono::seconds openingByOthersWaitedFor{2};

// A file of before may be open to others; the database gives those that it makes beside it the same
// mode.
void makePrivate(const QString &fileName)
{
    posix::File(fileName, O_RDWR).makePrivate();
}

} // namespace

QueueFile::QueueFile(const QString &fileName, const tr::Tr &knownDamage)
    : m_fileName(fileName)
    , m_presence(
          (atomicfile::makePrivateFolder(QFileInfo(fileName).absolutePath()), fileName + u".open"))
{
    if (m_presence.tryLock())
        openAlone(knownDamage);
    if (!m_presence.share(openingByOthersWaitedFor))
        throw StorageError(
            tr::Tr(u"queueBeingOpened"_s, u"%1: другая программа ещё открывает очередь"_s)
                .arg(fileName));
    if (m_database)
        return;
    m_database = std::make_unique<QueueDatabase>(m_fileName);
    queuelayout::bringUp(*m_database);
}

QueueFile::~QueueFile() = default;

QString QueueFile::deliveryLock() const
{
    return m_fileName + u".lock"_s;
}

void QueueFile::openAlone(const tr::Tr &knownDamage)
{
    if (QFileInfo(m_fileName).isFile())
        makePrivate(m_fileName);
    queuecheck::Finding finding;
    finding.damage = knownDamage;
    if (knownDamage.isEmpty())
        finding = queuecheck::lookAt(m_fileName);
    if (!finding.damage.isEmpty())
        setAside(finding.damage);
    if (!QFileInfo::exists(m_fileName))
        newqueuefile::make(m_fileName);
    m_database = std::make_unique<QueueDatabase>(m_fileName);
    queuelayout::bringUp(*m_database);
    if (finding.readThrough)
        queuecheck::rememberReading(*m_database);
    salvageWhatWasSetAside();
}

void QueueFile::setAside(const tr::Tr &damage)
{
    const QString aside = setaside::move(m_fileName);
    note(tr::Tr(u"queueSetAside"_s,
        u"Очередь отправки повреждена (%1) и отложена в файл %2. Сообщите администратору"_s)
             .arg(damage)
             .arg(aside));
}

// Also what a run that was killed in between has left.
void QueueFile::salvageWhatWasSetAside()
{
    for (const QString &aside : setaside::notYetSalvaged(m_fileName)) {
        const salvage::Result salvaged = salvage::into(*m_database, aside);
        setaside::markSalvaged(aside, salvaged.taken);
        note(tr::Tr(u"queueSalvaged"_s,
            u"Из отложенной очереди %1 восстановлено сообщений: %2, не читаются: %3"_s)
                 .arg(aside)
                 .arg(QString::number(salvaged.taken))
                 .arg(QString::number(salvaged.broken)));
    }
}

void QueueFile::note(const tr::Tr &notice)
{
    Log4Qt::LogManager::logger(u"poshost.queue"_s)->error(notice.ru());
    m_notices.append(notice);
}

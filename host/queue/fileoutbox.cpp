#include "host/queue/fileoutbox.h"

#include "host/queue/ballast.h"
#include "host/storage/atomicfile.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.queue"_s);
}

QString ballastOf(const QString &fileName)
{
    return fileName + u".ballast";
}

} // namespace

FileOutbox::FileOutbox(const QString &fileName, qint64 ballastBytes)
    : m_fileName(fileName)
    , m_ballastBytes(ballastBytes)
    , m_spill(fileName + u".spill")
{ }

void FileOutbox::put(const QueueMessage &message)
{
    try {
        with([this, &message](MessageStore &store) {
            // What came before goes before.
            if (!m_spill.isEmpty())
                throw StorageError(
                    tr::Tr(u"queueSpilledWaits"_s, u"%1: отложенное вне файла ещё не перенесено"_s)
                        .arg(m_fileName));
            store.append(message);
        });
    } catch (const StorageError &error) {
        logger()->error(QString::fromUtf8(error.what()));
        spill(message);
        logger()->error(
            u"message %1 went to the spill file and will be taken in later"_s.arg(message.id));
    }
}

MessageStore &FileOutbox::store()
{
    if (!m_store) {
        m_store = std::make_unique<MessageStore>(m_fileName, m_knownDamage);
        m_knownDamage = {};
        keepBallast();
    }
    // Without room for the ballast the queue's file would only use up what the spill file needs.
    if (!m_spill.isEmpty() && keepBallast())
        takeInSpilled();
    return *m_store;
}

QList<MessageStore *> FileOutbox::toLookAt()
{
    return {&store()};
}

QString FileOutbox::folder() const
{
    return QFileInfo(m_fileName).absolutePath();
}

QList<QueueMessage> FileOutbox::spilled()
{
    try {
        const QList<QueueMessage> messages = m_spill.messages();
        // Who was killed behind taking them in has left them here too.
        return m_store && !messages.isEmpty() ? m_store->missing(messages) : messages;
    } catch (const QueueUnusable &) {
        throw;
    } catch (const StorageError &error) {
        logger()->error(QString::fromUtf8(error.what()));
        return {};
    }
}

void FileOutbox::close(const QueueUnusable &error)
{
    // A server's failure while messages move is no damage of the file that they are in.
    if (!dynamic_cast<const QueueDamaged *>(&error))
        return;
    // Where others have it open it stays: then the next who has it alone finds what is wrong.
    m_knownDamage = m_store ? error.tr() : tr::Tr();
    m_store.reset();
}

bool FileOutbox::keepBallast() const
{
    return ballast::keep(ballastOf(m_fileName), m_ballastBytes);
}

// What fails here fails no delivery: the spill file stays as it is until the next time.
void FileOutbox::takeInSpilled()
{
    try {
        int taken = 0;
        const int unreadable
            = m_spill.takeOver([this, &taken](const QList<QueueMessage> &messages) {
                  taken = m_store->takeIn(messages);
              });
        logger()->info(u"%1 spilled messages were taken in"_s.arg(taken));
        if (unreadable > 0)
            logger()->error(u"%1 lines of the spill file are no whole messages and were kept "
                            u"aside beside it"_s.arg(unreadable));
    } catch (const QueueDamaged &) {
        throw;
    } catch (const StorageError &error) {
        logger()->error(QString::fromUtf8(error.what()));
    }
}

void FileOutbox::spill(const QueueMessage &message)
{
    atomicfile::makePrivateFolder(folder());
    try {
        m_spill.append(message);
    } catch (const StorageError &) {
        if (!ballast::release(ballastOf(m_fileName)))
            throw;
        m_spill.append(message);
    }
}

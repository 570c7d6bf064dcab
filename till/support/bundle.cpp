#include "till/support/bundle.h"

#include "host/config/config.h"
#include "host/config/inifile.h"
#include "host/framework/currenttime.h"
#include "host/queue/queuelook.h"
#include "host/storage/atomicfile.h"
#include "host/storage/privacy.h"
#include "host/storage/storageerror.h"
#include "till/configuration.h"
#include "till/core/cannotdo.h"
#include "till/queue/messageobject.h"
#include "till/support/bundlelayout.h"
#include "till/support/contents.h"
#include "till/support/queuefigures.h"
#include "till/support/secrets.h"
#include "till/support/statefiles.h"
#include "till/support/versions.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

constexpr int jsonIndent = 1;
constexpr int newestMessages = 2000;

QByteArray bytesOf(const Json &object)
{
    return QByteArray::fromStdString(object.dump(jsonIndent)) + '\n';
}

// To the millisecond: a story puts them between the lines of the journal.
Json archivedMessage(const QueueMessage &message)
{
    const std::initializer_list<std::pair<const char *, QDateTime>> times{
        {"enqueued", message.enqueued}, {"lastAttempt", message.lastAttempt},
        {"nextAttempt", message.nextAttempt}, {"settled", message.settled}};
    Json object = wholeMessage(message);
    for (const auto &[name, time] : times)
        if (time.isValid())
            object[name] = toJson(time.toUTC().toString(Qt::ISODateWithMs));
    return object;
}

/// Makes one archive.
class Bundling
{
public:
    explicit Bundling(const BundleRequest &request)
        : m_request(request)
        , m_contents(request.mostBytes)
    { }

    QStringList write()
    {
        readSettings();
        m_stateFolder = till::stateFolder(m_request.stateFolder);
        learnSecrets();
        m_contents.add(
            layout::versions, bytesOf(versions(m_request.programVersion, m_request.pluginFile)));
        addSettings();
        addQueue();
        StateFiles(m_stateFolder, m_secrets, m_contents).add();
        const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
        Json manifest = m_contents.manifest();
        manifest["created"] = dateTimeToJson(now.toUTC());
        QList<archive::Entry> entries{{layout::manifest, bytesOf(manifest)}};
        entries += m_contents.entries();
        atomicfile::write(m_request.file, archive::packed(entries, now));
        return m_contents.problems();
    }

private:
    // Settings that cannot be used are what support has to see.
    void readSettings()
    {
        try {
            readConfiguration(m_request.configFile);
        } catch (const SpokenError &error) {
            m_contents.noteProblem(error.tr().ui());
        }
    }

    void learnSecrets()
    {
        m_secrets.learnConfiguration();
        try {
            m_queue
                = std::make_unique<QueueLook>(QueueSite::configured(m_stateFolder + u"/queue"_s));
            m_messages = m_queue->newest(newestMessages);
        } catch (const StorageError &error) {
            m_contents.noteProblem(error.tr().ui());
        }
        for (const QueueMessage &message : m_messages)
            m_secrets.learnMessage(message);
        m_secrets.learnDocument(StateFiles::openDocument(m_stateFolder));
    }

    // The files themselves, never what "@file:" names: that is where passwords are.
    [[nodiscard]] QStringList settingsFiles() const
    {
        const QString main = configurationFile(m_request.configFile);
        if (main.isEmpty())
            return {};
        QStringList files{main};
        const QDir folder(main + u".d"_s);
        for (const QString &name : folder.entryList({u"*.ini"_s}, QDir::Files, QDir::Name))
            files.append(folder.filePath(name));
        return files;
    }

    void addSettings()
    {
        for (const QString &fileName : settingsFiles()) {
            QFile file(fileName);
            if (!file.open(QIODevice::ReadOnly)) {
                m_contents.noteProblem(fileName + u": "_s + file.errorString());
                continue;
            }
            m_contents.add(layout::settings + relativeToMain(fileName),
                m_secrets.maskedSettings(file.read(ini::longestFile)));
        }
    }

    // Whatever folder they are in: a name must not lead out of the archive.
    [[nodiscard]] QString relativeToMain(const QString &fileName) const
    {
        const QFileInfo main(configurationFile(m_request.configFile));
        return QDir(main.absolutePath()).relativeFilePath(QFileInfo(fileName).absoluteFilePath());
    }

    void addQueue()
    {
        if (!m_queue)
            return;
        try {
            m_contents.add(layout::queueStatus, bytesOf(queueFigures(*m_queue)));
        } catch (const StorageError &error) {
            m_contents.noteProblem(error.tr().ui());
        }
        Json messages = Json::array();
        for (const QueueMessage &message : m_messages)
            messages.push_back(archivedMessage(m_secrets.masked(message)));
        // Half of them rather than none: the newest ones count.
        while (!m_contents.add(layout::messages, bytesOf(messages)) && messages.size() > 1)
            messages.erase(messages.begin(),
                messages.begin() + static_cast<Json::difference_type>((messages.size() + 1) / 2));
    }

    const BundleRequest &m_request;
    Contents m_contents;
    Secrets m_secrets;
    QString m_stateFolder;
    std::unique_ptr<QueueLook> m_queue;
    QList<QueueMessage> m_messages;
};

} // namespace

QStringList writeBundle(const BundleRequest &request)
{
    privacy::leaveNoCore();
    if (QFileInfo::exists(request.file))
        throw CannotDo(tr::Tr(u"bundleThere"_s, u"файл %1 уже есть"_s).arg(request.file),
            {u"bundleThereRemedy"_s, u"укажите другое имя"_s});
    return Bundling(request).write();
}

} // namespace till::support

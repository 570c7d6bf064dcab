#include "tests/host/queue/postgresserver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString user = u"till"_s;

/// The folder of the newest server's programs; empty when none is installed.
QString programs()
{
    const QDir versions(u"/usr/lib/postgresql"_s);
    const QStringList names = versions.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        const QString folder = versions.filePath(*name + u"/bin"_s);
        if (QFile::exists(folder + u"/postgres"_s) && QFile::exists(folder + u"/initdb"_s))
            return folder;
    }
    return {};
}

// The server refuses to run as root.
const passwd *unprivilegedUser()
{
    if (::getuid() != 0)
        return nullptr;
    const passwd *found = ::getpwnam("postgres");
    return found ? found : ::getpwnam("nobody");
}

/// The words that run a server's program as a user that may, and end it with this one.
QStringList command(const QString &program, const QStringList &words)
{
    QStringList command{u"--pdeathsig"_s, u"INT"_s};
    if (const passwd *as = unprivilegedUser())
        command += {u"--reuid"_s, QString::number(as->pw_uid), u"--regid"_s,
            QString::number(as->pw_gid), u"--clear-groups"_s};
    return command + QStringList{programs() + u'/' + program} + words;
}

int freePort()
{
    const int probe = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ::bind(probe, reinterpret_cast<sockaddr *>(&address), size);
    ::getsockname(probe, reinterpret_cast<sockaddr *>(&address), &size);
    ::close(probe);
    return ntohs(address.sin_port);
}

// One that has ended has the number 0, which would mean this program and all beside it.
void tell(qint64 process, int signal)
{
    if (process > 0)
        ::kill(static_cast<pid_t>(process), signal);
}

void put(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(fileName));
}

} // namespace

PostgresServer *PostgresServer::instance()
{
    static const std::unique_ptr<PostgresServer> server
        = programs().isEmpty() ? nullptr : std::make_unique<PostgresServer>();
    return server.get();
}

PostgresServer::PostgresServer(const QString &place)
    : m_folder(place + u"/queue-server-XXXXXX"_s)
{
    makeData();
    start();
}

PostgresServer::~PostgresServer()
{
    thaw();
    end(SIGQUIT);
}

QString PostgresServer::url(const QString &password) const
{
    const QString secret = QString::fromUtf8(QUrl::toPercentEncoding(password));
    return u"postgresql://%1:%2@127.0.0.1:%3/postgres"_s.arg(user, secret, QString::number(m_port));
}

QString PostgresServer::socketUrl() const
{
    return url().replace(u"127.0.0.1"_s, u""_s) + u"?host="_s + folder();
}

QString PostgresServer::memory()
{
    const QString folder = u"/dev/shm"_s;
    return QFileInfo(folder).isWritable() ? folder : QDir::tempPath();
}

void PostgresServer::makeData()
{
    put(folder() + u"/password"_s, "p@ss word's\\\n");
    giveAway(folder());
    giveAway(folder() + u"/password"_s);
    QProcess initdb;
    initdb.start(u"setpriv"_s,
        command(u"initdb"_s,
            {u"--no-sync"_s, u"-D"_s, folder() + u"/data"_s, u"-U"_s, user, u"-E"_s, u"UTF8"_s,
                u"--locale=C"_s, u"-A"_s, u"scram-sha-256"_s, u"--pwfile"_s,
                folder() + u"/password"_s}));
    if (!initdb.waitForFinished(-1) || initdb.exitCode() != 0)
        qFatal("%s", initdb.readAllStandardError().constData());
}

void PostgresServer::giveAway(const QString &fileName)
{
    const QByteArray path = QFile::encodeName(fileName);
    const passwd *const as = unprivilegedUser();
    if (as && ::chown(path.constData(), as->pw_uid, as->pw_gid) != 0)
        qFatal("%s cannot be given away", path.constData());
}

void PostgresServer::start()
{
    constexpr int portsToTry = 5;
    if (m_port == 0)
        m_port = freePort();
    for (int port = 0; port < portsToTry; ++port) {
        if (tryStart())
            return;
        // Somebody else was quicker to take the port.
        m_port = freePort();
    }
    qFatal("the server does not start");
}

bool PostgresServer::tryStart()
{
    m_process = std::make_unique<QProcess>();
    m_process->setProcessChannelMode(QProcess::MergedChannels);
    m_process->start(u"setpriv"_s,
        command(u"postgres"_s,
            {u"-D"_s, folder() + u"/data"_s, u"-p"_s, QString::number(m_port), u"-k"_s, folder(),
                u"-c"_s, u"listen_addresses=127.0.0.1"_s, u"-c"_s, u"autovacuum=off"_s, u"-c"_s,
                u"shared_buffers=32MB"_s, u"-c"_s, u"max_connections=40"_s}));
    QByteArray said;
    while (m_process->waitForReadyRead(-1)) {
        said += m_process->readAll();
        if (said.contains("ready to accept connections"))
            return true;
    }
    return false;
}

void PostgresServer::stop()
{
    end(SIGINT);
}

void PostgresServer::crash()
{
    end(SIGQUIT);
}

void PostgresServer::end(int signal)
{
    if (!m_process)
        return;
    tell(m_process->processId(), signal);
    m_process->waitForFinished(-1);
    m_process.reset();
}

void PostgresServer::freeze()
{
    signalAll(SIGSTOP);
}

void PostgresServer::thaw()
{
    if (m_process)
        signalAll(SIGCONT);
}

// The one that listens first, so that it makes no more of the others.
void PostgresServer::signalAll(int signal)
{
    const QString process = QString::number(m_process->processId());
    tell(m_process->processId(), signal);
    QFile children(u"/proc/%1/task/%1/children"_s.arg(process));
    if (!children.open(QIODevice::ReadOnly))
        return;
    for (const QByteArray &child : children.readAll().split(' '))
        if (!child.trimmed().isEmpty())
            tell(child.toInt(), signal);
}

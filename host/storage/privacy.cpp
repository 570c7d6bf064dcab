#include "host/storage/privacy.h"

#include "host/config/config.h"
#include "host/storage/posixfile.h"
#include "host/storage/statefolder.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace privacy {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr mode_t allRights = S_IRWXU | S_IRWXG | S_IRWXO;
constexpr int octal = 8;

mode_t rightsOfOthers(const struct stat &status)
{
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    const bool isGiven = S_ISREG(status.st_mode) && status.st_uid != ::geteuid();
    return status.st_mode & (isGiven ? others & ~mode_t{S_IRGRP} : others);
}

QString looseRightsOf(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || rightsOfOthers(status) == 0)
        return {};
    const mode_t enough = S_ISDIR(status.st_mode) ? posix::privateFolder : posix::privateFile;
    return u"%1: other users may read or change it, its rights are %2; take them away with chmod %3"_s
        .arg(path, QString::number(status.st_mode & allRights, octal),
            QString::number(enough, octal));
}

QStringList withContents(const QString &folder)
{
    QStringList paths{folder};
    const auto entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries)
        paths.append(entry.filePath());
    return paths;
}

} // namespace

QStringList looseRights(const QStringList &paths)
{
    QStringList found;
    for (const QString &path : paths)
        if (const QString loose = looseRightsOf(path); !loose.isEmpty())
            found.append(loose);
    return found;
}

void warnOfLooseRights()
{
    const StateFolder &folder = *Singleton<StateFolder>::instance();
    // The queue's folder is among the contents of the state folder already.
    const QStringList paths = Singleton<Config>::instance()->fileNames()
        + withContents(folder.path()) + withContents(folder.queue()).mid(1);
    for (const QString &loose : looseRights(paths))
        Log4Qt::LogManager::logger(u"poshost.privacy"_s)->warn(loose);
}

void leaveNoCore()
{
    const rlimit none{0, 0};
    // Lowering a limit is always allowed.
    static_cast<void>(::setrlimit(RLIMIT_CORE, &none));
}

} // namespace privacy

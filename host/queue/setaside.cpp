#include "host/queue/setaside.h"

#include "host/framework/currenttime.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <fcntl.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace setaside {

namespace {

const QString damaged = u".damaged-"_s;
const QString salvaged = u".salvaged"_s;
const QStringList &companions()
{
    static const QStringList suffixes{u"-wal"_s, u"-shm"_s};
    return suffixes;
}

bool isTaken(const QString &name)
{
    return QFileInfo::exists(name)
        || std::any_of(companions().cbegin(), companions().cend(),
            [&name](const QString &suffix) { return QFileInfo::exists(name + suffix); });
}

QString freeName(const QString &fileName)
{
    const QString time
        = MockFactory<CurrentTime>::create()->currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QString name = fileName + damaged + time;
    for (int more = 2; isTaken(name); ++more)
        name = fileName + damaged + time + u'-' + QString::number(more);
    return name;
}

} // namespace

QString move(const QString &fileName)
{
    QString aside = freeName(fileName);
    // The file first: a log that is left without it is seen and kept, while a file that is left
    // without its log would pass for a whole one.
    for (const QString &suffix : QStringList{u""_s} + companions())
        if (QFileInfo::exists(fileName + suffix))
            atomicfile::move(fileName + suffix, aside + suffix);
    if (!QFileInfo::exists(aside))
        posix::File(aside, O_WRONLY | O_CREAT | O_EXCL).sync();
    return aside;
}

QStringList notYetSalvaged(const QString &fileName)
{
    const QFileInfo file(fileName);
    static const QRegularExpression number(u"^[0-9-]+$"_s);
    const QString begin = file.fileName() + damaged;
    QStringList names;
    for (const QFileInfo &found :
        file.absoluteDir().entryInfoList({begin + u'*'}, QDir::Files | QDir::Hidden, QDir::Name)) {
        const bool isTheFile = number.match(found.fileName().mid(begin.size())).hasMatch();
        if (isTheFile && !QFileInfo::exists(found.absoluteFilePath() + salvaged))
            names.append(found.absoluteFilePath());
    }
    return names;
}

void markSalvaged(const QString &aside, int messages)
{
    atomicfile::write(aside + salvaged, QByteArray::number(messages) + " messages\n");
}

} // namespace setaside

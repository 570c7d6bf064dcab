#include "host/storage/privacy.h"
#include "till/check/machine.h"

#include <QFileInfo>
#include <QStorageInfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

Finding ofMachine(Severity severity, const tr::Tr &what, const tr::Tr &remedy)
{
    return {severity, Area::Machine, {{}, 0, u"Till:state"_s}, what, remedy};
}

/// The folder itself, or the one that it would be made in.
QFileInfo nearestExisting(const QString &path)
{
    QFileInfo info(path);
    while (!info.exists() && !info.isRoot())
        info = QFileInfo(info.absolutePath());
    return info;
}

Findings judgeMissing(const QString &path)
{
    const QFileInfo above = nearestExisting(path);
    if (above.isDir() && above.isWritable())
        return {ofMachine(Severity::Note,
            tr::Tr(u"checkStateMissing"_s, u"папки %1 ещё нет, касса создаст её"_s).arg(path), {})};
    return {ofMachine(Severity::Error,
        tr::Tr(u"checkStateImpossible"_s, u"папку %1 нельзя создать в %2"_s)
            .arg(path)
            .arg(above.filePath()),
        {u"checkStateRights"_s, u"дайте пользователю кассы права или измените Till:state"_s})};
}

Finding foreign(const QFileInfo &info)
{
    return ofMachine(Severity::Error,
        tr::Tr(u"checkStateForeign"_s, u"папка %1 принадлежит пользователю %2"_s)
            .arg(info.filePath())
            .arg(info.owner().isEmpty() ? QString::number(info.ownerId()) : info.owner()),
        {u"checkRunAsOwner"_s, u"выполните проверку от имени пользователя кассы"_s});
}

Findings judgeExisting(const QFileInfo &info)
{
    if (!info.isDir())
        return {ofMachine(Severity::Error,
            tr::Tr(u"checkStateNoFolder"_s, u"%1 — не папка"_s).arg(info.filePath()),
            {u"checkOtherState"_s, u"укажите другую папку в Till:state или --state"_s})};
    if (info.ownerId() != geteuid())
        return {foreign(info)};
    if (!info.isWritable())
        return {ofMachine(Severity::Error,
            tr::Tr(u"checkStateReadOnly"_s, u"в папку %1 нельзя писать"_s).arg(info.filePath()),
            {u"checkStateRights"_s, u"дайте пользователю кассы права или измените Till:state"_s})};
    if (!privacy::looseRights({info.filePath()}).isEmpty())
        return {ofMachine(Severity::Warning,
            tr::Tr(u"checkStateReadable"_s,
                u"в папку %1 могут заглядывать другие: там данные покупателей"_s)
                .arg(info.filePath()),
            tr::Tr(u"checkStateTakeRights"_s, u"chmod 700 %1"_s).arg(info.filePath()))};
    return {ofMachine(
        Severity::Ok, tr::Tr(u"checkStateGood"_s, u"папка %1 готова"_s).arg(info.filePath()), {})};
}

} // namespace

Findings judgeRoom(qint64 bytes, const QString &path)
{
    constexpr qint64 megabyte = qint64{1024} * 1024;
    // A cheque takes some kilobytes, the log and the queue's ballast a few megabytes.
    constexpr qint64 little = 200 * megabyte;
    constexpr qint64 hardlyAny = 20 * megabyte;
    const Severity severity = bytes < hardlyAny ? Severity::Error
        : bytes < little                        ? Severity::Warning
                                                : Severity::Ok;
    return {ofMachine(severity,
        tr::Tr(u"checkRoom"_s, u"на диске папки %1 свободно %2 МиБ"_s)
            .arg(path)
            .arg(QString::number(bytes / megabyte)),
        severity == Severity::Ok
            ? tr::Tr()
            : tr::Tr(u"checkMakeRoom"_s, u"освободите место: без него касса не сохранит чеки"_s))};
}

Findings judgeStateFolder(const QString &path)
{
    const QFileInfo info(path);
    const QFileInfo existing = nearestExisting(path);
    Findings found = info.exists() ? judgeExisting(info) : judgeMissing(path);
    if (worst(found) == Severity::Error)
        return found;
    return found + judgeRoom(QStorageInfo(existing.filePath()).bytesAvailable(), path);
}

} // namespace till::check

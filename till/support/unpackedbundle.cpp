#include "till/support/unpackedbundle.h"

#include "host/storage/storageerror.h"
#include "till/support/archive.h"
#include "till/support/bundlelayout.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <algorithm>
#include <ctime>

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

// Well above what `writeBundle` puts into one.
constexpr qint64 mostBytes = qint64{256} * 1024 * 1024;

bool isOurs(const QList<archive::Entry> &entries)
{
    return std::any_of(entries.cbegin(), entries.cend(),
        [](const archive::Entry &entry) { return entry.name == layout::manifest; });
}

} // namespace

UnpackedBundle::UnpackedBundle(const QString &fileName)
{
    const QList<archive::Entry> entries = archive::unpacked(fileName, mostBytes);
    if (!isOurs(entries))
        throw StorageError(tr::Tr(u"bundleForeign"_s,
            u"%1: это не архив для поддержки; возьмите файл, который записала korvel-till check "
            u"--bundle"_s)
                               .arg(fileName));
    for (const archive::Entry &entry : entries) {
        write(entry.name, entry.contents);
        if (entry.name == layout::versions)
            takeOver(entry.contents);
    }
    QDir(m_folder.path()).mkpath(layout::state);
}

QString UnpackedBundle::stateFolder() const
{
    return QDir(m_folder.filePath(layout::state)).absolutePath();
}

QString UnpackedBundle::messagesFile() const
{
    return m_folder.filePath(layout::messages);
}

void UnpackedBundle::write(const QString &name, const QByteArray &contents) const
{
    QFile file(m_folder.filePath(name));
    const bool isWritten = QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)
        && file.write(contents) == contents.size() && file.flush();
    if (!isWritten)
        throw StorageError(tr::Tr(
            u"bundleNotWritten"_s, u"%1: архив не удаётся распаковать (%2); освободите место"_s)
                               .arg(file.fileName())
                               .arg(file.errorString()));
}

void UnpackedBundle::takeOver(const QByteArray &versions)
{
    const QJsonObject object = QJsonDocument::fromJson(versions).object();
    m_technicalCardName = object.value(u"technicalCardName").toString();
    const QByteArray zone = object.value(u"timeZone").toString().toUtf8();
    if (!QTimeZone::isTimeZoneIdAvailable(zone))
        return;
    qputenv("TZ", zone);
    tzset();
}

} // namespace till::support

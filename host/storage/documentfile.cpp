#include "host/storage/documentfile.h"

#include "host/storage/atomicfile.h"
#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace documentfile {

namespace {

struct Written
{
    QString fileName;
    QByteArray contents;
};

// What this process has written last, and knows to be synced. What was there before it is only
// known to be in memory: a till that was killed may not have come to the sync.
Written &lastWritten()
{
    static Written one;
    return one;
}

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isOnDisk(const QString &fileName, const QByteArray &contents)
{
    const Written &last = lastWritten();
    return last.fileName == fileName && last.contents == contents
        && contentsOf(fileName) == contents;
}

} // namespace

void save(AbstractDocument &document, const QString &fileName)
{
    const QByteArray contents = documentjson::write(document);
    if (isOnDisk(fileName, contents))
        return;
    lastWritten() = {};
    atomicfile::write(fileName, contents);
    lastWritten() = {fileName, contents};
}

QSharedPointer<AbstractDocument> load(const QString &fileName)
{
    QFile file(fileName);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw StorageError(tr::Tr(u"fileUnreadable"_s,
            u"%1: не читается: %2; проверьте, что он принадлежит пользователю кассы"_s)
                               .arg(fileName)
                               .arg(file.errorString()));
    return documentjson::read(file.readAll(), fileName);
}

bool isSame(const AbstractDocument &left, const AbstractDocument &right)
{
    return left.getNumber() == right.getNumber()
        && left.getCorrelationId() == right.getCorrelationId();
}

} // namespace documentfile

#include "host/storage/documentfile.h"

#include "host/storage/atomicfile.h"
#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace documentfile {

void save(AbstractDocument &document, const QString &fileName)
{
    atomicfile::write(fileName, documentjson::write(document));
}

QSharedPointer<AbstractDocument> load(const QString &fileName)
{
    QFile file(fileName);
    if (!file.exists())
        return {};
    if (!file.open(QIODevice::ReadOnly))
        throw StorageError(u"%1: cannot be read: %2; see that it belongs to the till's user"_s.arg(
            fileName, file.errorString()));
    return documentjson::read(file.readAll(), fileName);
}

bool isSame(const AbstractDocument &left, const AbstractDocument &right)
{
    return left.getNumber() == right.getNumber()
        && left.getCorrelationId() == right.getCorrelationId();
}

} // namespace documentfile

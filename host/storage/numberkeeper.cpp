#include "host/storage/numberkeeper.h"

#include "host/storage/atomicfile.h"
#include "host/storage/storageerror.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace numberkeeper {

namespace {
const QString highestNumber = u"highestNumber"_s;
constexpr qint64 none = -1;
} // namespace

std::optional<qint64> highest(const QString &fileName)
{
    QFile file(fileName);
    if (!file.exists())
        return {};
    qint64 number = none;
    if (file.open(QIODevice::ReadOnly))
        number = QJsonDocument::fromJson(file.readAll())[highestNumber].toInteger(none);
    if (number == none)
        throw StorageError(tr::Tr(u"documentNumberUnreadable"_s,
            u"%1: не читается наибольший номер документа; восстановите файл или удалите "
            u"его, чтобы считать дальше по имеющимся документам"_s)
                               .arg(fileName));
    return number;
}

void keep(const QString &fileName, qint64 number)
{
    const QJsonObject kept{{highestNumber, number}};
    atomicfile::write(fileName, QJsonDocument(kept).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace numberkeeper

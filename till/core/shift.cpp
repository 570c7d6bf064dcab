#include "till/core/shift.h"

#include "host/storage/atomicfile.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"

#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString markFile()
{
    return Singleton<StateFolder>::instance()->path() + u"/shift"_s;
}

// 0 where no shift was closed yet.
qlonglong lastNumberBefore()
{
    QFile file(markFile());
    if (!file.exists())
        return 0;
    bool ok = false;
    const qlonglong number
        = file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toLongLong(&ok) : 0;
    if (!ok)
        throw StorageError(tr::Tr(u"shiftMarkWrong"_s,
            u"%1: в файле нет номера документа; запишите туда последний номер предыдущей смены"_s)
                               .arg(file.fileName()));
    return number;
}

} // namespace

ShiftSums sumUp(const QList<QSharedPointer<AbstractDocument>> &closed)
{
    ShiftSums sums;
    for (const auto &document : closed) {
        if (document->getOperationKind() == EOperationKind::GoodsComeBack) {
            ++sums.returns;
            sums.returned += document->getSumAfterDiscounts();
        } else {
            ++sums.sales;
            sums.sold += document->getSumAfterDiscounts();
            sums.pointsEarned += document->getEffects().pointsEarned;
            sums.pointsSpent += document->getPointsPaid();
        }
    }
    return sums;
}

Shift::Shift(const DocumentStore &store)
    : m_store(store)
{ }

QList<QSharedPointer<AbstractDocument>> Shift::documents() const
{
    const qlonglong before = lastNumberBefore();
    QList<QSharedPointer<AbstractDocument>> closed;
    const QStringList numbers = m_store.closedNumbers();
    for (const QString &number : numbers)
        if (number.toLongLong() > before)
            closed.append(m_store.loadClosed(number));
    return closed;
}

void Shift::end(const QList<QSharedPointer<AbstractDocument>> &documents) const
{
    qlonglong last = lastNumberBefore();
    for (const auto &document : documents)
        last = std::max(last, document->getNumber().toLongLong());
    atomicfile::write(markFile(), QByteArray::number(last) + '\n');
}

} // namespace till

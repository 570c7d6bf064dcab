#include "host/queue/salvage/salvage.h"

#include "host/queue/messagerow.h"
#include "host/queue/messagetable.h"
#include "host/queue/salvage/tableleaf.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace salvage {

namespace {

// Columns of the first layout; later ones are missing in the rows of its program.
constexpr qsizetype fewestColumns = 14;
// An id and the name of a queue stand in the row's own page.
constexpr qsizetype columnsThatTell = 3;

QVariant valueOf(const QVariantList &row, const QString &column)
{
    return row.value(messagerow::columns().indexOf(column));
}

// The number is not among the values of its row: a null stands in its place.
bool beginsLikeAMessage(const QVariantList &row)
{
    return row.size() >= columnsThatTell && row.at(0).isNull()
        && valueOf(row, u"id"_s).typeId() == QMetaType::QString
        && valueOf(row, u"queue"_s).typeId() == QMetaType::QString;
}

bool isMessage(const QVariantList &row)
{
    return row.size() >= fewestColumns && beginsLikeAMessage(row)
        && !valueOf(row, u"id"_s).toString().isEmpty()
        && isStateName(valueOf(row, u"state"_s).toString());
}

QueueMessage messageOf(const QVariantList &row)
{
    QueueMessage message
        = messagerow::read([&row](const QString &column) { return valueOf(row, column); });
    if (message.state == MessageState::Sending)
        message.state = MessageState::Pending;
    message.leaseOwner.clear();
    message.leaseUntil = {};
    return message;
}

/// All rows of the image by number; values are not held, since the rows may be many and long.
QList<tableleaf::Cell> rowsOf(DatabaseImage &image)
{
    QList<tableleaf::Cell> rows;
    for (quint32 page = 1; page <= image.pageCount(); ++page)
        rows.append(tableleaf::cells(image, page));
    std::stable_sort(rows.begin(), rows.end(),
        [](const auto &left, const auto &right) { return left.rowNumber < right.rowNumber; });
    return rows;
}

} // namespace

Result into(QueueDatabase &queue, const QString &damagedFile)
{
    DatabaseImage image(damagedFile);
    Result result;
    QueueTransaction transaction(queue);
    for (const auto &cell : rowsOf(image)) {
        const auto row = tableleaf::values(image, cell);
        if (row && isMessage(*row)) {
            result.taken += messagetable::insert(queue, messageOf(*row)) ? 1 : 0;
        } else if (!row) {
            const auto beginning = tableleaf::firstValues(image, cell);
            result.broken += beginning && beginsLikeAMessage(*beginning) ? 1 : 0;
        }
    }
    transaction.commit();
    return result;
}

} // namespace salvage

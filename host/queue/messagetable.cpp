#include "host/queue/messagetable.h"

#include "host/queue/messagerow.h"

#include <QSqlRecord>

using namespace Qt::Literals::StringLiterals;

namespace messagetable {

namespace {

const QString separator = u", "_s;

const QString &insertStatement()
{
    static const QString statement = [] {
        // The number is the database's to give.
        const QStringList filled = messagerow::columns().mid(1);
        return u"INSERT INTO messages (%1) VALUES (%2) ON CONFLICT (id) DO NOTHING"_s.arg(
            filled.join(separator), QStringList(filled.size(), u"?"_s).join(separator));
    }();
    return statement;
}

} // namespace

bool insert(QueueDatabase &database, const QueueMessage &message)
{
    return database.change(insertStatement(), messagerow::values(message)) > 0;
}

QString select(const QStringList &columns)
{
    return u"SELECT "_s + columns.join(separator) + u" FROM messages ";
}

QueueMessage messageFrom(const QSqlQuery &row)
{
    const QSqlRecord record = row.record();
    return messagerow::read([&row, &record](const QString &column) {
        const int index = record.indexOf(column);
        return index < 0 ? QVariant() : row.value(index);
    });
}

} // namespace messagetable

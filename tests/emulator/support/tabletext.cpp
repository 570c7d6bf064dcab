#include "tests/emulator/support/tabletext.h"

#include <QSqlField>
#include <QSqlRecord>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QString rowText(const QSqlQuery &row)
{
    QStringList fields;
    for (int column = 0; column < row.record().count(); ++column)
        fields.append(row.isNull(column) ? u"NULL"_s : row.value(column).toString());
    return fields.join(u'|');
}

} // namespace

QStringList tablesAsText(Database &database, const QStringList &without)
{
    QStringList text;
    const auto tables = database.all(u"SELECT name FROM sqlite_master WHERE type = 'table'"_s, {},
        [](const QSqlQuery &row) { return row.value(0).toString(); });
    for (const QString &table : tables) {
        if (without.contains(table))
            continue;
        for (const QString &row : database.all(u"SELECT * FROM %1"_s.arg(table), {}, rowText))
            text.append(table + u": "_s + row);
    }
    return text;
}

} // namespace emulator

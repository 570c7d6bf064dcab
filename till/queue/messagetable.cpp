#include "till/queue/messagetable.h"

#include "host/framework/tr.h"
#include "host/text/plaintext.h"
#include "till/queue/messagetext.h"

#include <libsmartcols.h>
#include <unistd.h>

#include <memory>
#include <new>

using namespace Qt::StringLiterals;

namespace till {

namespace {

// As much of an id as tells a million messages apart.
constexpr int shortIdLength = 13;
constexpr int idLength = 36;

// The library makes a column as wide as the values of one page; these ones are as wide on all.
struct Column
{
    tr::Tr heading;
    int width;
    bool isNumber = false;
};

QList<Column> columnsFor(MessageTable::Width width)
{
    return {{{tr::undefined, u"ID"_s},
                width == MessageTable::Width::Terminal ? shortIdLength : idLength},
        {{u"queueColumnEnqueued"_s, u"ПОСТАВЛЕНО"_s}, 16}, {{u"queueColumnState"_s, u"СОСТ."_s}, 9},
        {{u"queueColumnTries"_s, u"ПОПЫТ"_s}, 5, true}, {{u"queueColumnNext"_s, u"СЛЕДУЮЩ."_s}, 8},
        {{u"queueColumnCode"_s, u"КОД"_s}, 5, true}};
}

tr::Tr lastHeading()
{
    return {u"queueColumnLastError"_s, u"ПОСЛЕДНЯЯ ОШИБКА"_s};
}

QStringList valuesOf(const QueueMessage &message)
{
    const bool isPending = message.state == MessageState::Pending;
    return {message.id, message.enqueued.toLocalTime().toString(u"yyyy-MM-dd HH:mm"),
        stateName(message.state), QString::number(message.attempts),
        // No wait is as long as a day.
        isPending ? message.nextAttempt.toLocalTime().toString(u"HH:mm:ss") : QString(),
        message.lastCode == 0 ? QString() : QString::number(message.lastCode)};
}

QStringList rowOf(const QueueMessage &message, const QList<Column> &columns)
{
    QStringList row = valuesOf(message);
    for (qsizetype index = 0; index < row.size(); ++index) {
        const Column &column = columns.at(index);
        QString &value = row[index];
        // Of an id its beginning is enough; a number is never cut.
        value = column.isNumber ? value.rightJustified(column.width)
                                : value.leftJustified(column.width, u' ', true);
    }
    return row << plaintext::line(reasonText(message)).simplified();
}

using Table = std::unique_ptr<libscols_table, decltype(&scols_unref_table)>;

// The library reports nothing but that memory is short.
template <typename T> T *made(T *object)
{
    if (object == nullptr)
        throw std::bad_alloc();
    return object;
}

Table makeTable(const QList<Column> &columns, MessageTable::Width width)
{
    Table table(made(scols_new_table()), &scols_unref_table);
    for (const Column &column : columns)
        made(scols_table_new_column(table.get(), column.heading.ui().toUtf8().constData(),
            column.width, column.isNumber ? SCOLS_FL_RIGHT : 0));
    const bool isCut = width == MessageTable::Width::Terminal;
    made(scols_table_new_column(
        table.get(), lastHeading().ui().toUtf8().constData(), 1, isCut ? SCOLS_FL_TRUNC : 0));
    return table;
}

void addRow(libscols_table *table, const QStringList &values)
{
    libscols_line *line = made(scols_table_new_line(table, nullptr));
    for (qsizetype column = 0; column < values.size(); ++column)
        if (scols_line_set_data(
                line, static_cast<size_t>(column), values.at(column).toUtf8().constData())
            != 0)
            throw std::bad_alloc();
}

} // namespace

MessageTable::MessageTable(std::FILE *stream, Width width)
    : m_stream(stream)
    , m_width(width)
{ }

MessageTable::Width MessageTable::widthFor(std::FILE *stream)
{
    return isatty(fileno(stream)) != 0 ? Width::Terminal : Width::Whole;
}

void MessageTable::write(const QList<QueueMessage> &page)
{
    const QList<Column> columns = columnsFor(m_width);
    const Table table = makeTable(columns, m_width);
    for (const QueueMessage &message : page)
        addRow(table.get(), rowOf(message, columns));
    scols_table_set_stream(table.get(), m_stream);
    scols_table_enable_noheadings(table.get(), m_hasHeadings ? 1 : 0);
    scols_table_set_termforce(
        table.get(), m_width == Width::Terminal ? SCOLS_TERMFORCE_ALWAYS : SCOLS_TERMFORCE_NEVER);
    if (m_columns > 0)
        scols_table_set_termwidth(table.get(), static_cast<size_t>(m_columns));
    scols_print_table(table.get());
    m_hasHeadings = true;
}

} // namespace till

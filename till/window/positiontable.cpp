#include "till/window/positiontable.h"

#include "till/window/texts.h"

#include <QHeaderView>

#include <algorithm>

namespace till {

namespace {

constexpr int nameColumn = 2;
constexpr int heightOfRow = 48;

QStringList headings()
{
    return {texts::columnNumber.ui(), texts::columnCode.ui(), texts::columnName.ui(),
        texts::columnQuantity.ui(), texts::columnPrice.ui(), texts::columnDiscount.ui(),
        texts::columnSum.ui(), texts::columnPoints.ui()};
}

QStringList cells(const PositionRow &position)
{
    return {QString::number(position.posnum), position.code, position.name, position.quantity,
        position.price, position.discount, position.sum, position.points};
}

Qt::Alignment alignmentOf(int column)
{
    return (column > nameColumn ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

} // namespace

PositionTable::PositionTable(QWidget *parent)
    : QTableWidget(parent)
{
    setObjectName(QStringLiteral("positions"));
    const QStringList names = headings();
    setColumnCount(static_cast<int>(names.size()));
    setHorizontalHeaderLabels(names);
    horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    horizontalHeader()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(heightOfRow);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setFocusPolicy(Qt::NoFocus);
    setWordWrap(false);
}

void PositionTable::showPositions(const QList<PositionRow> &rows)
{
    const auto before = chosen();
    const bool hasNew = !rows.isEmpty() && !m_posnums.contains(rows.constLast().posnum);
    m_posnums.clear();
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rows.size(); ++row) {
        m_posnums.append(rows.at(row).posnum);
        fill(row, rows.at(row));
    }
    const qsizetype kept = before && !hasNew ? m_posnums.indexOf(*before) : -1;
    setCurrentCell(static_cast<int>(kept >= 0 ? kept : m_posnums.size() - 1), 0);
}

void PositionTable::fill(int row, const PositionRow &position)
{
    const QStringList contents = cells(position);
    for (int column = 0; column < contents.size(); ++column) {
        auto *item = new QTableWidgetItem(contents.at(column));
        item->setTextAlignment(alignmentOf(column));
        setItem(row, column, item);
    }
}

std::optional<int> PositionTable::chosen() const
{
    const int row = currentRow();
    return row >= 0 && row < m_posnums.size() ? std::optional(m_posnums.at(row)) : std::nullopt;
}

void PositionTable::chooseFurther(int rows)
{
    if (rowCount() > 0)
        setCurrentCell(std::clamp(currentRow() + rows, 0, rowCount() - 1), 0);
}

} // namespace till

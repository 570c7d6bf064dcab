#include "till/window/exchangespage.h"

#include "till/window/exchangetext.h"
#include "till/window/texts.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

enum Column
{
    TimeColumn,
    OperationColumn,
    OutcomeColumn,
    ColumnCount
};

constexpr int heightOfRow = 48;
constexpr QColor failedColour{0xb3, 0x26, 0x1e};

QPlainTextEdit *makeXmlView(const QString &objectName)
{
    auto *view = new QPlainTextEdit;
    view->setContextMenuPolicy(Qt::NoContextMenu);
    view->setObjectName(objectName);
    view->setProperty("isXml", true);
    view->setReadOnly(true);
    // Copying goes by the page, which masks card numbers.
    view->setTextInteractionFlags(Qt::NoTextInteraction);
    view->setContextMenuPolicy(Qt::NoContextMenu);
    view->setFocusPolicy(Qt::NoFocus);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    return view;
}

QLabel *makeHeading(const QString &text)
{
    auto *heading = new QLabel(text);
    heading->setObjectName(u"heading"_s);
    heading->setTextFormat(Qt::PlainText);
    return heading;
}

QTableWidget *makeTable()
{
    auto *table = new QTableWidget;
    table->setObjectName(u"exchanges"_s);
    table->setColumnCount(ColumnCount);
    table->setHorizontalHeaderLabels(
        {texts::exchangeTime.ui(), texts::exchangeOperation.ui(), texts::exchangeOutcome.ui()});
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(OutcomeColumn, QHeaderView::Stretch);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(heightOfRow);
    table->setSelectionBehavior(QTableWidget::SelectRows);
    table->setSelectionMode(QTableWidget::SingleSelection);
    table->setEditTriggers(QTableWidget::NoEditTriggers);
    table->setTabKeyNavigation(false);
    table->setWordWrap(false);
    return table;
}

} // namespace

ExchangesPage::ExchangesPage(QWidget *parent)
    : QWidget(parent)
    , m_table(makeTable())
    , m_outcome(new QLabel)
    , m_request(makeXmlView(u"request"_s))
    , m_answer(makeXmlView(u"answer"_s))
    , m_note(new QLabel)
{
    m_outcome->setObjectName(u"exchangeOutcome"_s);
    m_outcome->setWordWrap(true);
    m_outcome->setTextFormat(Qt::PlainText);
    m_note->setObjectName(u"exchangeNote"_s);
    m_note->setTextFormat(Qt::PlainText);
    auto *messages = new QVBoxLayout;
    messages->addWidget(m_outcome);
    messages->addWidget(makeHeading(texts::exchangeRequest.ui()));
    messages->addWidget(m_request, 1);
    messages->addWidget(makeHeading(texts::exchangeAnswer.ui()));
    messages->addWidget(m_answer, 1);
    auto *sides = new QHBoxLayout;
    sides->addWidget(m_table, 1);
    sides->addLayout(messages, 1);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->addLayout(makeHead());
    rows->addLayout(sides, 1);
    connect(m_table, &QTableWidget::currentCellChanged, this, &ExchangesPage::showChosen);
    setFocusProxy(m_table);
    showExchanges({});
}

QHBoxLayout *ExchangesPage::makeHead()
{
    auto *head = new QHBoxLayout;
    auto *title = new QLabel(texts::exchanges.ui());
    title->setObjectName(u"exchangesTitle"_s);
    title->setTextFormat(Qt::PlainText);
    head->addWidget(title);
    head->addStretch();
    head->addWidget(m_note);
    m_copy = makeButton(texts::copy.ui(), u"copy"_s, QKeySequence::Copy);
    connect(m_copy, &QPushButton::clicked, this, &ExchangesPage::copyChosen);
    auto *back = makeButton(texts::back.ui(), u"back"_s, Qt::Key_Escape);
    connect(back, &QPushButton::clicked, this, &ExchangesPage::left);
    head->addWidget(m_copy);
    head->addWidget(back);
    return head;
}

QPushButton *ExchangesPage::makeButton(
    const QString &text, const QString &objectName, const QKeySequence &key)
{
    auto *button = new QPushButton(text + u"  "_s + key.toString(QKeySequence::NativeText), this);
    button->setObjectName(objectName);
    button->setFocusPolicy(Qt::NoFocus);
    auto *shortcut = new QShortcut(key, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    return button;
}

void ExchangesPage::showExchanges(const QList<ExchangeRecord> &records)
{
    m_records = records;
    std::reverse(m_records.begin(), m_records.end());
    const QSignalBlocker quietly(m_table);
    m_table->setRowCount(static_cast<int>(m_records.size()));
    for (int row = 0; row < m_records.size(); ++row)
        fill(row, m_records.at(row));
    m_table->setCurrentCell(m_records.isEmpty() ? -1 : 0, 0);
    showChosen();
}

void ExchangesPage::fill(int row, const ExchangeRecord &record)
{
    const QStringList cells{record.begun.toString(u"HH:mm:ss"_s), exchangetext::operation(record),
        exchangetext::outcome(record)};
    for (int column = 0; column < cells.size(); ++column) {
        auto *item = new QTableWidgetItem(cells.at(column));
        if (column == OutcomeColumn && !exchangetext::hasSucceeded(record))
            item->setForeground(failedColour);
        m_table->setItem(row, column, item);
    }
}

void ExchangesPage::showChosen()
{
    const int row = m_table->currentRow();
    const bool isOne = row >= 0 && row < m_records.size();
    const ExchangeRecord record = isOne ? m_records.at(row) : ExchangeRecord();
    m_copy->setEnabled(isOne);
    m_note->clear();
    m_outcome->setText(isOne ? u"%1 · %2 · %3"_s.arg(exchangetext::begun(record),
                           exchangetext::duration(record), exchangetext::outcome(record))
                             : texts::noExchanges.ui());
    m_request->setPlainText(exchangetext::shown(record.request));
    m_answer->setPlainText(exchangetext::shown(record.answer));
}

void ExchangesPage::copyChosen()
{
    const int row = m_table->currentRow();
    if (row < 0 || row >= m_records.size())
        return;
    QApplication::clipboard()->setText(exchangetext::forClipboard(m_records.at(row)));
    m_note->setText(texts::copied.ui());
}

} // namespace till

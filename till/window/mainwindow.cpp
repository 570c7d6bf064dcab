#include "till/window/mainwindow.h"

#include "till/window/busyveil.h"
#include "till/window/customerpanel.h"
#include "till/window/exchangespage.h"
#include "till/window/functionbar.h"
#include "till/window/pendinginput.h"
#include "till/window/positiontable.h"
#include "till/window/queueglance.h"
#include "till/window/servicepage.h"
#include "till/window/texts.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace till {

namespace {

constexpr auto timeBetweenLooks = 10s;
constexpr int messagesHeight = 110;
constexpr int couponsHeight = 76;
constexpr int customerSideWidth = 340;

QLabel *makeLabel(const QString &objectName, const QString &text = {})
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setObjectName(objectName);
    return label;
}

QListWidget *makeList(const QString &objectName, int height)
{
    auto *list = new QListWidget;
    list->setObjectName(objectName);
    list->setFixedHeight(height);
    list->setFocusPolicy(Qt::NoFocus);
    list->setSelectionMode(QListWidget::NoSelection);
    list->setWordWrap(true);
    return list;
}

void fill(QListWidget &list, const QStringList &texts)
{
    list.clear();
    list.addItems(texts);
    list.scrollToBottom();
}

} // namespace

MainWindow::MainWindow(Desk &desk)
    : m_desk(desk)
    , m_band(makeLabel(u"band"_s))
    , m_pages(new QStackedWidget)
    , m_exchanges(new ExchangesPage)
    , m_title(makeLabel(u"title"_s))
    , m_offlineSign(makeLabel(u"offlineSign"_s, texts::offlineSign.ui()))
    , m_positions(new PositionTable)
    , m_messages(makeList(u"messages"_s, messagesHeight))
    , m_input(new QLineEdit)
    , m_total(makeLabel(u"total"_s))
    , m_customer(new CustomerPanel)
    , m_coupons(makeList(u"coupons"_s, couponsHeight))
    , m_paperName(makeLabel(u"heading"_s))
    , m_paper(new QPlainTextEdit)
    , m_serviceState(makeLabel(u"serviceState"_s))
    , m_queueState(makeLabel(u"queueState"_s))
    , m_veil(new BusyVeil(this))
{
    // A plain widget paints the style sheet's background only when told.
    setAttribute(Qt::WA_StyledBackground);
    setWindowTitle(texts::windowTitle.ui());
    // A menu of the toolkit's own is of no use at a till, and speaks the toolkit's language.
    m_input->setContextMenuPolicy(Qt::NoContextMenu);
    m_paper->setContextMenuPolicy(Qt::NoContextMenu);
    m_band->setWordWrap(true);
    m_band->hide();
    m_pages->addWidget(makeSalePage());
    m_pages->addWidget(m_exchanges);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(m_band);
    rows->addWidget(m_pages, 1);
    rows->addWidget(makeStateLine());
    connect(m_exchanges, &ExchangesPage::left, this, &MainWindow::showSale);
    connect(m_input, &QLineEdit::returnPressed, this, &MainWindow::enter);
    m_input->installEventFilter(this);
    lookAtServiceNowAndThen();
    refresh();
}

QWidget *MainWindow::makeSalePage()
{
    auto *sides = new QHBoxLayout;
    sides->addWidget(makeChequeSide(), 1);
    sides->addWidget(makeCustomerSide());
    m_offlineSign->setWordWrap(true);
    auto *bar = new FunctionBar;
    connect(bar, &FunctionBar::chosen, this, &MainWindow::perform);
    auto *page = new QWidget;
    auto *rows = new QVBoxLayout(page);
    rows->setContentsMargins({});
    rows->addWidget(makeHead());
    rows->addWidget(m_offlineSign);
    rows->addLayout(sides, 1);
    rows->addWidget(bar);
    return page;
}

QWidget *MainWindow::makeHead()
{
    auto *head = new QWidget;
    auto *columns = new QHBoxLayout(head);
    columns->setContentsMargins({});
    columns->addWidget(m_title, 1);
    auto *exchanges = makeTool(texts::exchanges.ui(), u"exchangesButton"_s, Qt::CTRL | Qt::Key_E);
    connect(exchanges, &QPushButton::clicked, this, &MainWindow::showExchanges);
    auto *page = makeTool(texts::servicePage.ui(), u"servicePageButton"_s, Qt::CTRL | Qt::Key_K);
    connect(page, &QPushButton::clicked, this, &MainWindow::openServicePage);
    page->setVisible(!servicePage().isEmpty());
    columns->addWidget(exchanges);
    columns->addWidget(page);
    return head;
}

QPushButton *MainWindow::makeTool(
    const QString &text, const QString &objectName, const QKeySequence &key)
{
    auto *button = new QPushButton(text + u"  "_s + key.toString(QKeySequence::NativeText));
    button->setObjectName(objectName);
    button->setFocusPolicy(Qt::NoFocus);
    // A hidden button's shortcut does nothing either.
    connect(new QShortcut(key, button), &QShortcut::activated, button, &QPushButton::click);
    return button;
}

QWidget *MainWindow::makeChequeSide()
{
    auto *side = new QWidget;
    auto *rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->addWidget(m_positions, 1);
    rows->addWidget(m_messages);
    rows->addWidget(makeTotalRow());
    return side;
}

QWidget *MainWindow::makeTotalRow()
{
    auto *row = new QWidget;
    auto *columns = new QHBoxLayout(row);
    columns->setContentsMargins({});
    m_input->setObjectName(u"input"_s);
    m_input->setPlaceholderText(texts::inputHint.ui());
    columns->addWidget(m_input, 1);
    columns->addWidget(makeLabel(u"totalName"_s, texts::total.ui()));
    columns->addWidget(m_total);
    return row;
}

QWidget *MainWindow::makeCustomerSide()
{
    auto *side = new QWidget;
    side->setFixedWidth(customerSideWidth);
    auto *rows = new QVBoxLayout(side);
    rows->setContentsMargins({});
    rows->addWidget(m_customer);
    rows->addWidget(makeLabel(u"heading"_s, texts::coupons.ui()));
    rows->addWidget(m_coupons);
    rows->addWidget(m_paperName);
    m_paper->setObjectName(u"paper"_s);
    m_paper->setReadOnly(true);
    m_paper->setFocusPolicy(Qt::NoFocus);
    m_paper->setLineWrapMode(QPlainTextEdit::NoWrap);
    rows->addWidget(m_paper, 1);
    return side;
}

QWidget *MainWindow::makeStateLine()
{
    auto *line = new QWidget;
    auto *columns = new QHBoxLayout(line);
    columns->setContentsMargins({});
    columns->addWidget(m_serviceState);
    columns->addStretch();
    columns->addWidget(m_queueState);
    return line;
}

// The age of what waits grows, and other programs deliver it, while nothing happens here.
void MainWindow::lookAtServiceNowAndThen()
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &MainWindow::refreshState);
    timer->start(timeBetweenLooks);
}

void MainWindow::watchQueueWith(QueueGlance &glance)
{
    m_glance = &glance;
    connect(&glance, &QueueGlance::seen, this, [this](const QueueOffice::Status &status) {
        m_desk.takeQueueState(status);
        m_queueState->setText(m_desk.queueState());
    });
    connect(&glance, &QueueGlance::failed, this, [this](const QString &reason) {
        m_desk.takeQueueFailure(reason);
        m_queueState->setText(m_desk.queueState());
    });
    refreshState();
}

void MainWindow::setBand(const QString &text)
{
    m_band->setText(text);
    m_band->setVisible(!text.isEmpty());
}

void MainWindow::fillScreen()
{
    setGeometry(screen()->availableGeometry());
    showMaximized();
}

void MainWindow::showExchanges()
{
    m_exchanges->showExchanges(m_desk.exchanges().records());
    m_pages->setCurrentWidget(m_exchanges);
    m_exchanges->setFocus();
}

void MainWindow::showSale()
{
    m_pages->setCurrentIndex(0);
    refresh();
}

void MainWindow::openServicePage()
{
    const QUrl page = servicePage();
    if (QDesktopServices::openUrl(page))
        return;
    m_desk.tell(texts::servicePageNotOpened.arg(page.toString()).ui());
    refresh();
}

void MainWindow::refreshState()
{
    if (m_glance && Desk::isQueueShared())
        m_glance->look();
    m_offlineSign->setVisible(m_desk.connection().isOffline());
    m_serviceState->setText(m_desk.serviceState());
    m_queueState->setText(m_desk.queueState());
}

void MainWindow::refresh()
{
    const ChequeView &cheque = m_desk.cheque();
    m_title->setText(cheque.title);
    m_positions->showPositions(cheque.positions);
    m_customer->showCustomer(cheque.customer);
    m_total->setText(cheque.total);
    fill(*m_coupons, cheque.coupons);
    fill(*m_messages, m_desk.messages());
    m_messages->setVisible(!m_desk.messages().isEmpty());
    m_paperName->setText(m_desk.isPreview() ? texts::preview.ui() : texts::paper.ui());
    m_paper->setPlainText(m_desk.paper());
    refreshState();
    m_input->setFocus();
}

void MainWindow::enter()
{
    finish(m_desk.enter(m_input->text()));
}

void MainWindow::perform(Function function)
{
    const bool isDone = m_desk.perform(function, m_input->text().trimmed(), m_positions->chosen());
    finish(isDone && function != Function::MessagesRead);
}

void MainWindow::uncover()
{
    // Only behind a veil: two quick scans of goods are both meant.
    if (m_veil->takeWasUp())
        dropPendingInput();
    m_veil->end();
}

// What was typed stays while it could not be used, ready to be typed over.
void MainWindow::finish(bool isTaken)
{
    uncover();
    if (isTaken)
        m_input->clear();
    else
        m_input->selectAll();
    refresh();
}

bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_input || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Up:
        m_positions->chooseFurther(-1);
        return true;
    case Qt::Key_Down:
        m_positions->chooseFurther(1);
        return true;
    default:
        return false;
    }
}

} // namespace till

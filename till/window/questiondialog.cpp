#include "till/window/questiondialog.h"

#include "till/window/texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr int textWidth = 460;

QLabel *makeText(const QString &objectName, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(textWidth);
    return label;
}

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool isCharacter(const QKeyEvent &event)
{
    return !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

QuestionDialog::QuestionDialog(
    const tr::Tr &text, const tr::Tr &accept, const tr::Tr &reject, QWidget *parent)
    : QDialog(parent)
    , m_hint(makeText(u"questionHint"_s, texts::answerFirst.ui()))
{
    setWindowTitle(texts::windowTitle.ui());
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(makeText(u"question"_s, text.ui()));
    rows->addWidget(m_hint);
    // Its room is there from the start, so that nothing moves under a finger.
    QSizePolicy policy = m_hint->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_hint->setSizePolicy(policy);
    m_hint->hide();
    auto *buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    auto *yes = addButton(*buttons, accept, u"accept"_s);
    yes->setDefault(true);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    if (reject.isEmpty())
        return;
    auto *no = addButton(*buttons, reject, u"reject"_s);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton *QuestionDialog::addButton(
    QHBoxLayout &buttons, const tr::Tr &text, const QString &objectName)
{
    auto *button = new QPushButton(text.ui(), this);
    button->setObjectName(objectName);
    button->installEventFilter(this);
    buttons.addWidget(button);
    return button;
}

bool QuestionDialog::takesForScan(const QKeyEvent &event)
{
    if (isEnter(event))
        return std::exchange(m_isScanning, false);
    if (!isCharacter(event))
        return false;
    m_isScanning = true;
    m_hint->show();
    return true;
}

// A button with the focus would take Enter and the space for itself.
bool QuestionDialog::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::KeyPress ? takesForScan(static_cast<const QKeyEvent &>(*event))
                                             : QDialog::eventFilter(watched, event);
}

void QuestionDialog::keyPressEvent(QKeyEvent *event)
{
    if (!takesForScan(*event))
        QDialog::keyPressEvent(event);
}

} // namespace till

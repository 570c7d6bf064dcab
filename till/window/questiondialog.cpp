#include "till/window/questiondialog.h"

#include "till/window/texts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr int textWidth = 460;

} // namespace

QuestionDialog::QuestionDialog(
    const tr::Tr &text, const tr::Tr &accept, const tr::Tr &reject, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(texts::windowTitle.ui());
    auto *rows = new QVBoxLayout(this);
    auto *question = new QLabel(text.ui(), this);
    question->setObjectName(u"question"_s);
    question->setTextFormat(Qt::PlainText);
    question->setWordWrap(true);
    question->setMinimumWidth(textWidth);
    rows->addWidget(question);
    auto *buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    auto *yes = new QPushButton(accept.ui(), this);
    yes->setObjectName(u"accept"_s);
    yes->setDefault(true);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    buttons->addWidget(yes);
    if (reject.isEmpty())
        return;
    auto *no = new QPushButton(reject.ui(), this);
    no->setObjectName(u"reject"_s);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(no);
}

} // namespace till

#include "till/window/functionbar.h"

#include <QGridLayout>
#include <QKeySequence>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr int buttonsInRow = 6;

QPushButton *makeButton(const FunctionKey &key)
{
    const QString keyName = QKeySequence(key.key).toString();
    auto *button = new QPushButton(keyName + u'\n' + key.name.ui());
    button->setObjectName(keyName);
    // The input line keeps the focus, so that the scanner always writes into it.
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

FunctionBar::FunctionBar(QWidget *parent)
    : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    int place = 0;
    for (const FunctionKey &key : functionKeys()) {
        const auto choose = [this, function = key.function] { Q_EMIT chosen(function); };
        auto *button = makeButton(key);
        connect(button, &QPushButton::clicked, this, choose);
        // Not the button's own shortcut: that clicks a moment later, behind what is typed next.
        auto *shortcut = new QShortcut(key.key, this);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, choose);
        grid->addWidget(button, place / buttonsInRow, place % buttonsInRow);
        ++place;
    }
}

} // namespace till

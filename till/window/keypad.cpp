#include "till/window/keypad.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString wipe = u"⌫"_s;
// As on a telephone, row by row.
const QStringList keys{
    u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"8"_s, u"9"_s, u","_s, u"0"_s, wipe};
constexpr int keysInRow = 3;

} // namespace

Keypad::Keypad(QLineEdit &target, QWidget *parent)
    : QWidget(parent)
    , m_target(target)
{
    setObjectName(u"keypad"_s);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins({});
    int place = 0;
    for (const QString &key : keys) {
        auto *button = new QPushButton(key, this);
        button->setObjectName(u"key"_s + key);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, key] { press(key); });
        grid->addWidget(button, place / keysInRow, place % keysInRow);
        ++place;
    }
}

void Keypad::press(const QString &key)
{
    if (key == wipe)
        m_target.backspace();
    else
        m_target.insert(key);
}

} // namespace till

#include "till/window/paymentdialog.h"

#include "host/config/config.h"
#include "host/documents/money.h"
#include "till/language/localetext.h"
#include "till/window/forms.h"
#include "till/window/keypad.h"
#include "till/window/texts.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr int width = 460;
constexpr Qt::Key cardKey = Qt::Key_F7;
// The key that opened the dialog: pressed twice it pays exactly, in cash.
constexpr Qt::Key exactKey = Qt::Key_F8;

QLabel *makeText(const QString &objectName, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(width);
    return label;
}

QString keyName(Qt::Key key)
{
    return QKeySequence(key).toString();
}

} // namespace

PaymentDialog::PaymentDialog(double rest, QWidget *parent)
    : QDialog(parent)
    , m_rest(rest)
    , m_given(new QLineEdit)
    , m_change(makeText(u"change"_s, {}))
    , m_error(makeText(u"formError"_s, {}))
{
    setWindowTitle(texts::payment.ui());
    m_given->setObjectName(u"given"_s);
    m_given->setContextMenuPolicy(Qt::NoContextMenu);
    m_given->setPlaceholderText(texts::givenHint.ui());
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(makeText(u"formTitle"_s, texts::payment.ui()));
    rows->addWidget(makeText(u"rest"_s, amountForEyes(rest)));
    rows->addWidget(m_given);
    rows->addWidget(m_change);
    rows->addWidget(m_error);
    if (Singleton<Config>::instance()->getBool(u"Till:digitalKeyboard"_s, false))
        rows->addWidget(new Keypad(*m_given, this));
    auto *buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    auto *cash = makeButton(texts::payCash.ui() + u"\nEnter"_s, u"cash"_s);
    cash->setDefault(true);
    auto *card = makeButton(texts::payCard.ui() + u'\n' + keyName(cardKey), u"card"_s);
    auto *cancel = makeButton(texts::cancel.ui() + u"\nEsc"_s, u"reject"_s);
    for (auto *button : {cash, card, cancel})
        buttons->addWidget(button);
    connect(cash, &QPushButton::clicked, this, &PaymentDialog::payCash);
    connect(card, &QPushButton::clicked, this, &PaymentDialog::payByCard);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(new QShortcut(cardKey, this), &QShortcut::activated, this, &PaymentDialog::payByCard);
    auto *exact = new QShortcut(exactKey, this);
    exact->setAutoRepeat(false);
    connect(exact, &QShortcut::activated, this, &PaymentDialog::payCash);
    connect(m_given, &QLineEdit::textChanged, this, &PaymentDialog::showChange);
    m_given->setFocus();
    showChange();
}

QPushButton *PaymentDialog::makeButton(const QString &text, const QString &objectName)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(objectName);
    return button;
}

// A scanned code is longer than any sum that is handed over.
bool PaymentDialog::isFit() const
{
    static const QRegularExpression sum(u"\\A((?=.*[1-9])\\d{1,7}([.,]\\d{1,2})?)?\\z"_s);
    return sum.match(m_given->text()).hasMatch();
}

std::optional<double> PaymentDialog::given() const
{
    return m_given->text().isEmpty() ? std::nullopt : std::optional(forms::number(m_given->text()));
}

void PaymentDialog::showChange()
{
    m_error->clear();
    const double given = isFit() ? this->given().value_or(m_rest) : m_rest;
    m_change->setText(money::counts(m_rest - given)
            ? texts::stillMissing.arg(amountForEyes(m_rest - given)).ui()
            : texts::change.arg(amountForEyes(given - m_rest)).ui());
}

void PaymentDialog::payCash()
{
    if (!isFit())
        return complain(texts::notASum.ui());
    m_tender = {PaymentKind::Cash, given()};
    accept();
}

void PaymentDialog::payByCard()
{
    if (!isFit())
        return complain(texts::notASum.ui());
    if (given() && money::counts(*given() - m_rest))
        return complain(texts::cardPaysNoMore.arg(amountForEyes(m_rest)).ui());
    m_tender = {PaymentKind::Card, given()};
    accept();
}

void PaymentDialog::complain(const QString &text)
{
    m_error->setText(text);
    m_given->setFocus();
    m_given->selectAll();
}

} // namespace till

#include "till/window/textformdialog.h"

#include "till/transcript/cashier.h"
#include "till/window/keypad.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

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

} // namespace

TextFormDialog::TextFormDialog(const InputTextFormParameters &form, QWidget *parent)
    : QDialog(parent)
    , m_form(form)
    , m_input(new QLineEdit(form.text))
    , m_error(makeText(u"formError"_s, {}))
{
    setObjectName(form.formName);
    setWindowTitle(form.title.ui());
    m_input->setObjectName(u"formInput"_s);
    m_input->setContextMenuPolicy(Qt::NoContextMenu);
    auto *rows = new QVBoxLayout(this);
    rows->addWidget(makeText(u"formTitle"_s, form.title.ui()));
    rows->addWidget(makeText(u"formMessage"_s, form.message.ui()));
    rows->addWidget(m_input);
    rows->addWidget(m_error);
    if (form.showDigitalKeyboard)
        rows->addWidget(new Keypad(*m_input, this));
    auto *buttons = new QHBoxLayout;
    rows->addLayout(buttons);
    auto *ok = makeButton(form.okButton, u"accept"_s);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &TextFormDialog::accept);
    auto *cancel = makeButton(form.cancelButton, u"reject"_s);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    m_input->setFocus();
    m_input->selectAll();
}

QPushButton *TextFormDialog::makeButton(const tr::Tr &text, const QString &objectName)
{
    auto *button = new QPushButton(text.ui(), this);
    button->setObjectName(objectName);
    return button;
}

QString TextFormDialog::text() const
{
    return m_input->text();
}

void TextFormDialog::accept()
{
    if (accepts(m_form, text()))
        return QDialog::accept();
    m_error->setText(m_form.scanError.ui());
    m_input->setFocus();
    m_input->selectAll();
}

} // namespace till

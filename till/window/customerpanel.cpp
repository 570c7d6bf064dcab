#include "till/window/customerpanel.h"

#include "till/window/texts.h"

#include <QFormLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace till {

CustomerPanel::CustomerPanel(QWidget *parent)
    : QWidget(parent)
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins({});
    auto *heading = new QLabel(texts::customer.ui(), this);
    heading->setObjectName(u"heading"_s);
    heading->setTextFormat(Qt::PlainText);
    form->addRow(heading);
    m_card = addLine(*form, texts::customerCard.ui(), u"customerCard"_s);
    m_type = addLine(*form, texts::customerType.ui(), u"customerType"_s);
    m_balance = addLine(*form, texts::customerBalance.ui(), u"customerBalance"_s);
    m_available = addLine(*form, texts::customerAvailable.ui(), u"customerAvailable"_s);
    m_chosen = addLine(*form, texts::customerChosen.ui(), u"customerChosen"_s);
    m_earned = addLine(*form, texts::customerEarned.ui(), u"customerEarned"_s);
    m_status = addLine(*form, texts::customerStatus.ui(), u"customerStatus"_s);
}

QLabel *CustomerPanel::addLine(QFormLayout &form, const QString &name, const QString &objectName)
{
    auto *value = new QLabel;
    value->setTextFormat(Qt::PlainText);
    value->setObjectName(objectName);
    value->setWordWrap(true);
    form.addRow(name, value);
    return value;
}

void CustomerPanel::showCustomer(const CustomerView &customer)
{
    m_card->setText(customer.card);
    m_type->setText(customer.type);
    m_balance->setText(customer.balance);
    m_available->setText(customer.available);
    m_chosen->setText(customer.chosen);
    m_earned->setText(customer.earned);
    m_status->setText(customer.status);
}

} // namespace till

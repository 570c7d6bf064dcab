#include "till/window/windowcashier.h"

#include "till/window/questiondialog.h"
#include "till/window/textformdialog.h"
#include "till/window/texts.h"

#include <utility>

namespace till {

void WindowCashier::sitDownAt(QWidget &window, std::function<void()> beforeDialog)
{
    m_window = &window;
    m_beforeDialog = std::move(beforeDialog);
}

void WindowCashier::prepareDialog() const
{
    if (m_beforeDialog)
        m_beforeDialog();
}

void WindowCashier::read(const tr::Tr &message)
{
    prepareDialog();
    QuestionDialog(message, texts::ok, {}, m_window).exec();
}

bool WindowCashier::choose(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject)
{
    prepareDialog();
    return QuestionDialog(question, accept, reject, m_window).exec() == QDialog::Accepted;
}

std::optional<QString> WindowCashier::enter(const InputTextFormParameters &form)
{
    prepareDialog();
    TextFormDialog dialog(form, m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.text()) : std::nullopt;
}

std::optional<Tender> WindowCashier::takeMoney(double rest) const
{
    prepareDialog();
    PaymentDialog dialog(rest, m_window);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.tender()) : std::nullopt;
}

} // namespace till

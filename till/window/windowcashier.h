#pragma once

#include "till/transcript/cashier.h"
#include "till/window/paymentdialog.h"

#include <QPointer>
#include <QWidget>

#include <functional>

namespace till {

/// A cashier in front of a window: answers by dialogs over it, by keyboard, mouse or finger.
class WindowCashier : public Cashier
{
public:
    /// @param window         what the dialogs stand over; not owned.
    /// @param beforeDialog   called before each dialog opens; may be empty.
    void sitDownAt(QWidget &window, std::function<void()> beforeDialog);

    void read(const tr::Tr &message) override;
    bool choose(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject) override;
    std::optional<QString> enter(const InputTextFormParameters &form) override;
    /// Asks how the customer pays.
    [[nodiscard]] std::optional<Tender> takeMoney(double rest) const;

private:
    void prepareDialog() const;

    QPointer<QWidget> m_window;
    std::function<void()> m_beforeDialog;
};

} // namespace till

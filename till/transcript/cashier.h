#pragma once

#include "host/dialogs/dialog.h"
#include "host/framework/tr.h"

#include <QString>

#include <optional>

namespace till {

/// Whether the whole text matches the form's expression; without one every text does.
[[nodiscard]] bool accepts(const InputTextFormParameters &form, const QString &text);

/// Who answers the dialogs that the plug-in opens.
class Cashier
{
public:
    Cashier() = default;
    virtual ~Cashier() = default;
    Q_DISABLE_COPY_MOVE(Cashier)

    /// Is told something and goes on.
    virtual void read(const tr::Tr &message) = 0;
    /// True when the first choice is taken.
    [[nodiscard]] virtual bool choose(
        const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject)
        = 0;
    /// A text that matches the form's expression; nothing when the form is cancelled.
    [[nodiscard]] virtual std::optional<QString> enter(const InputTextFormParameters &form) = 0;
};

} // namespace till

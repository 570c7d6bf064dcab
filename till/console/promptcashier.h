#pragma once

#include "till/script/answerline.h"

#include <QString>

#include <functional>
#include <iosfwd>
#include <optional>

namespace till {

/// A cashier at a terminal: takes the answers that were given beforehand, then asks.
class PromptCashier : public AnswerLine
{
public:
    /// Reads one line after a question; nothing at the end of the input.
    using ReadLine = std::function<std::optional<QString>(const QString &prompt)>;

    /// @param out not owned; must outlive this.
    PromptCashier(std::ostream &out, ReadLine readLine);

    void read(const tr::Tr &message) override;
    bool choose(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject) override;
    std::optional<QString> enter(const InputTextFormParameters &form) override;

private:
    void say(const QString &text);

    std::ostream &m_out;
    ReadLine m_readLine;
};

} // namespace till

#pragma once

#include "till/transcript/cashier.h"

#include <QList>

namespace till {

/// A cashier whose answers were given beforehand, in a line.
///
/// A dialog takes the first answer that fits it: a text fits a form, "ok" and "cancel" fit choice
/// and form. "ok" hands a form over as it is. What a form does not accept, because it does not
/// match its expression, is used up and the next answer taken. Without an answer a choice is
/// accepted and a form cancelled.
class AnswerLine : public Cashier
{
public:
    void addOk();
    void addCancel();
    void addText(const QString &text);
    /// Drops the answers that nobody has asked for.
    void clear();
    /// What the forms said to the answers that they did not accept, since the last call.
    [[nodiscard]] QList<tr::Tr> takeComplaints();

    void read(const tr::Tr &message) override;
    bool choose(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject) override;
    std::optional<QString> enter(const InputTextFormParameters &form) override;

protected:
    [[nodiscard]] bool hasAnswers() const { return !m_answers.isEmpty(); }
    /// Takes the first answer that fits a choice: whether it accepts; nothing when none fits.
    std::optional<bool> takeForChoice();

private:
    enum class Kind
    {
        Ok,
        Cancel,
        Text
    };
    struct Answer
    {
        Kind kind = Kind::Ok;
        QString text;
    };

    QList<Answer> m_answers;
    QList<tr::Tr> m_complaints;
};

} // namespace till

#include "till/script/answerline.h"

#include <algorithm>
#include <utility>

namespace till {

void AnswerLine::addOk()
{
    m_answers.append({Kind::Ok, {}});
}

void AnswerLine::addCancel()
{
    m_answers.append({Kind::Cancel, {}});
}

void AnswerLine::addText(const QString &text)
{
    m_answers.append({Kind::Text, text});
}

void AnswerLine::clear()
{
    m_answers.clear();
}

QList<tr::Tr> AnswerLine::takeComplaints()
{
    return std::exchange(m_complaints, {});
}

std::optional<bool> AnswerLine::takeForChoice()
{
    const auto fitting = std::find_if(m_answers.begin(), m_answers.end(),
        [](const Answer &answer) { return answer.kind != Kind::Text; });
    if (fitting == m_answers.end())
        return std::nullopt;
    const bool accepts = fitting->kind == Kind::Ok;
    m_answers.erase(fitting);
    return accepts;
}

void AnswerLine::read(const tr::Tr &) { }

bool AnswerLine::choose(const tr::Tr &, const tr::Tr &, const tr::Tr &)
{
    return takeForChoice().value_or(true);
}

std::optional<QString> AnswerLine::enter(const InputTextFormParameters &form)
{
    while (!m_answers.isEmpty()) {
        const Answer answer = m_answers.takeFirst();
        if (answer.kind == Kind::Cancel)
            return std::nullopt;
        QString text = answer.kind == Kind::Text ? answer.text : form.text;
        if (accepts(form, text))
            return text;
        m_complaints.append(form.scanError);
    }
    return std::nullopt;
}

} // namespace till

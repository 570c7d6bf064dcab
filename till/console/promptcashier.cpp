#include "till/console/promptcashier.h"

#include "host/text/plaintext.h"

#include <ostream>
#include <utility>

using namespace Qt::StringLiterals;

namespace till {

PromptCashier::PromptCashier(std::ostream &out, ReadLine readLine)
    : m_out(out)
    , m_readLine(std::move(readLine))
{ }

void PromptCashier::say(const QString &text)
{
    m_out << plaintext::block(text).toStdString() << std::endl;
}

void PromptCashier::read(const tr::Tr &message)
{
    say(message.ui());
}

bool PromptCashier::choose(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject)
{
    say(question.ui());
    if (const auto given = takeForChoice())
        return *given;
    const QString prompt = plaintext::line(u"1 %1, 2 %2 [1]: "_s.arg(accept.ui(), reject.ui()));
    while (const auto line = m_readLine(prompt)) {
        if (line->isEmpty() || *line == u"1")
            return true;
        if (*line == u"2")
            return false;
    }
    return false;
}

std::optional<QString> PromptCashier::enter(const InputTextFormParameters &form)
{
    say(form.title.ui());
    if (hasAnswers())
        return AnswerLine::enter(form);
    const QString prompt = plaintext::line(tr::Tr(u"consoleFormPrompt"_s, u"%1 (пусто: %2): "_s)
                                               .arg(form.message)
                                               .arg(form.cancelButton)
                                               .ui());
    while (auto line = m_readLine(prompt)) {
        if (line->isEmpty())
            return std::nullopt;
        if (accepts(form, *line))
            return line;
        say(form.scanError.ui());
    }
    return std::nullopt;
}

} // namespace till

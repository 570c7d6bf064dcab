#include "tests/restart/answersinline.h"

#include <algorithm>

namespace restart {

namespace {

bool isText(const Command &answer)
{
    return answer.argument(1) == u"text";
}

QString textOf(const Command &answer)
{
    return answer.words.mid(2).join(u' ');
}

bool isCancel(const Command &answer)
{
    return answer.argument(1) == u"cancel";
}

} // namespace

void AnswersInLine::note(const Command &command, const nlohmann::json &object)
{
    if (command.name() == u"answer")
        m_answers.append(command);
    for (const auto &dialog : object.at("dialogs")) {
        const auto kind = dialog.at("kind").get<std::string>();
        if (kind == "choice")
            useForChoice();
        else if (kind == "text")
            useForForm(QString::fromStdString(dialog.at("answer").get<std::string>()));
    }
}

// A choice passes over the texts.
void AnswersInLine::useForChoice()
{
    const auto fitting = std::find_if_not(m_answers.cbegin(), m_answers.cend(), isText);
    if (fitting != m_answers.cend())
        m_answers.erase(fitting);
}

// A form uses up what it does not accept, up to the answer that ends it.
void AnswersInLine::useForForm(const QString &answer)
{
    bool ended = false;
    while (!ended && !m_answers.isEmpty()) {
        const Command used = m_answers.takeFirst();
        ended = isCancel(used) || (isText(used) && textOf(used) == answer);
    }
}

QStringList AnswersInLine::commands() const
{
    QStringList texts;
    for (const Command &answer : m_answers)
        texts.append(answer.text);
    return texts;
}

} // namespace restart

#include "till/script/interpreter.h"

#include "till/core/cannotdo.h"
#include "till/script/expectation.h"
#include "till/script/words.h"

using namespace Qt::StringLiterals;

namespace till {

Interpreter::Interpreter(Till &till, Commands &commands, AnswerLine &answers, Recorder &recorder)
    : m_till(till)
    , m_commands(commands)
    , m_answers(answers)
    , m_recorder(recorder)
{ }

void Interpreter::setRemarkObserver(std::function<void(const QString &remark)> observer)
{
    m_remarkObserver = std::move(observer);
}

void Interpreter::passRemark(const QString &line) const
{
    if (m_remarkObserver && line.startsWith(u'#'))
        m_remarkObserver(line.sliced(1).trimmed());
}

std::optional<QString> Interpreter::execute(int line, const QString &text)
{
    QStringList words = splitWords(text);
    if (words.isEmpty()) {
        passRemark(text.trimmed());
        return std::nullopt;
    }
    const Commands::Command &command = Commands::find(words.takeFirst());
    if (!command.handler)
        return expect(words);
    ExecutedCommand executed;
    executed.line = line;
    executed.name = command.name;
    executed.text = text.trimmed();
    executeCommand(command, words, executed);
    return std::nullopt;
}

void Interpreter::executeCommand(
    const Commands::Command &command, const QStringList &arguments, ExecutedCommand executed)
{
    // What happened outside of any command, the start of the till for one, is nobody's.
    (void)m_recorder.take();
    executed.outcome = m_commands.execute(command, arguments);
    executed.outcome.notices.append(m_answers.takeComplaints());
    executed.recording = m_recorder.take();
    executed.document = executed.outcome.left ? executed.outcome.left : m_till.document();

    const Json object = commandObject(executed);
    if (command.isChecked)
        m_checked = object;
    for (const Observer &observer : m_observers)
        observer(executed, object);
}

std::optional<QString> Interpreter::expect(const QStringList &arguments) const
{
    const Expectation expectation(arguments);
    if (m_checked.is_null())
        throw CannotDo({u"scriptNothingToCheck"_s, u"ещё ничего не сделано, проверять нечего"_s},
            {u"scriptNothingToCheckRemedy"_s, u"поставьте expect после команды"_s});
    return expectation.failure(m_checked);
}

} // namespace till

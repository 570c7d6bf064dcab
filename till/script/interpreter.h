#pragma once

#include "till/script/commands.h"
#include "till/transcript/commandobject.h"
#include "till/transcript/recorder.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace till {

/// Executes command lines, one after the other, whatever they come from.
class Interpreter
{
public:
    /// Is shown each executed command with its object.
    using Observer = std::function<void(const ExecutedCommand &command, const Json &object)>;

    /// None of these is owned; all must outlive this.
    Interpreter(Till &till, Commands &commands, AnswerLine &answers, Recorder &recorder);

    void addObserver(Observer observer) { m_observers.append(std::move(observer)); }
    /// Who is shown the comments that have a line of their own, without their mark.
    void setRemarkObserver(std::function<void(const QString &remark)> observer);

    /// Executes one line; blank lines and comments do nothing.
    /// @return what an `expect` found instead; nothing when it held or the line was none.
    /// @throws CannotDo when the command is wrong or cannot be done now.
    std::optional<QString> execute(int line, const QString &text);

private:
    void passRemark(const QString &line) const;
    void executeCommand(
        const Commands::Command &command, const QStringList &arguments, ExecutedCommand executed);
    [[nodiscard]] std::optional<QString> expect(const QStringList &arguments) const;

    Till &m_till;
    Commands &m_commands;
    AnswerLine &m_answers;
    Recorder &m_recorder;
    QList<Observer> m_observers;
    std::function<void(const QString &)> m_remarkObserver;
    Json m_checked; ///< what `expect` looks at; null before the first command
};

} // namespace till

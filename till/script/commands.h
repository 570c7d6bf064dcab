#pragma once

#include "host/framework/tr.h"
#include "till/core/frozenclock.h"
#include "till/core/till.h"
#include "till/script/answerline.h"
#include "till/script/arguments.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace till {

/// The commands of scripts and prompt, each with its arguments.
class Commands
{
public:
    /// A row of the table of commands.
    struct Command
    {
        using Handler = Outcome (Commands::*)(Arguments &);

        QString name;
        QString usage;
        tr::Tr summary;
        Handler handler = nullptr; ///< null for `expect`, which the interpreter does itself
        /// Whether `expect` looks at its object.
        bool isChecked = true;
        QStringList options = {}; ///< names of those written "name=value"
    };

    /// None of these is owned; all must outlive this.
    Commands(Till &till, AnswerLine &answers, FrozenClock &clock);

    /// In the order in which `help` tells them.
    [[nodiscard]] static const QList<Command> &table();
    /// @throws CannotDo when there is no such command.
    [[nodiscard]] static const Command &find(const QString &name);

    /// @param command one with a handler.
    /// @throws CannotDo when an argument is wrong or it cannot be done now.
    [[nodiscard]] Outcome execute(const Command &command, const QStringList &arguments);

private:
    Outcome sale(Arguments &arguments);
    Outcome takeBack(Arguments &arguments);
    Outcome card(Arguments &arguments);
    Outcome input(Arguments &arguments);
    Outcome add(Arguments &arguments);
    Outcome quantity(Arguments &arguments);
    Outcome storno(Arguments &arguments);
    Outcome coupon(Arguments &arguments);
    Outcome total(Arguments &arguments);
    Outcome points(Arguments &arguments);
    Outcome pay(Arguments &arguments);
    Outcome close(Arguments &arguments);
    Outcome cancel(Arguments &arguments);
    Outcome answer(Arguments &arguments);
    Outcome deliver(Arguments &arguments);
    Outcome closeShift(Arguments &arguments);
    Outcome fault(Arguments &arguments);
    Outcome clock(Arguments &arguments);
    Outcome show(Arguments &arguments);
    Outcome help(Arguments &arguments);

    Till &m_till;
    AnswerLine &m_answers;
    FrozenClock &m_clock;
};

} // namespace till

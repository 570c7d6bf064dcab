#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace restart {

/// One command of a till script.
struct Command
{
    int line = 0; ///< in the script, from 1
    QString text; ///< the whole line
    QStringList words; ///< never empty; the first one names the command

    [[nodiscard]] QString name() const { return words.constFirst(); }
    /// The word behind the name, 1 being the first; empty when there are not so many.
    [[nodiscard]] QString argument(int place) const { return words.value(place); }
};

/// A till script without what it expects.
struct Scenario
{
    QString name; ///< of its file, without the ending
    QString folder; ///< of its file, where its settings and service data stand; may be empty
    std::vector<Command> commands;
};

/// Reads a script from its text. Comments, blank lines and `expect` lines are left out: what was
/// expected of a till that nobody killed need not hold of another one.
Scenario readScenario(const QString &name, const QString &text);
/// All scripts of a folder, `*.till`, by name; `NAME.2.till` and so on belong to `NAME.till`.
/// @throws std::runtime_error when one cannot be read.
std::vector<Scenario> scenariosIn(const QString &folder);

} // namespace restart

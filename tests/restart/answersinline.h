#pragma once

#include "tests/restart/scenario.h"

#include <QStringList>

#include <nlohmann/json.hpp>

namespace restart {

/// Which answers a till still has in its line, as can be told from what it was told and did. They
/// are gone with a killed till, and the cashier gives them again.
class AnswersInLine
{
public:
    /// Takes notice of a command that was carried out.
    /// @param object its transcript object.
    void note(const Command &command, const nlohmann::json &object);
    /// The `answer` commands that are not used up, in their order.
    [[nodiscard]] QStringList commands() const;

private:
    void useForChoice();
    void useForForm(const QString &answer);

    QList<Command> m_answers;
};

} // namespace restart

#include "till/console/prompt.h"

#include "host/text/plaintext.h"
#include "till/core/cannotdo.h"

#include <ostream>

using namespace Qt::StringLiterals;

namespace till {

namespace {

tr::Tr promptOf(const Till &till)
{
    return till.isLoyaltyOff()
        ? tr::Tr(u"consolePromptWithoutLoyalty"_s, u"касса без лояльности> "_s)
        : tr::Tr(u"consolePrompt"_s, u"касса> "_s);
}

} // namespace

void runPrompt(LineEditor &editor, const Till &till, Interpreter &interpreter, std::ostream &errors)
{
    int number = 0;
    while (const auto line = editor.read(promptOf(till).ui())) {
        editor.remember(*line);
        try {
            if (const auto failure = interpreter.execute(++number, *line))
                errors << plaintext::block(*failure).toStdString() << std::endl;
        } catch (const CannotDo &error) {
            errors << plaintext::block(error.text()).toStdString() << std::endl;
        }
    }
}

} // namespace till

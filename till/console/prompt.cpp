#include "till/console/prompt.h"

#include "host/text/plaintext.h"
#include "till/core/cannotdo.h"

#include <ostream>

using namespace Qt::StringLiterals;

namespace till {

void runPrompt(LineEditor &editor, Interpreter &interpreter, std::ostream &errors)
{
    int number = 0;
    while (const auto line = editor.read(tr::Tr(u"consolePrompt"_s, u"касса> "_s).ui())) {
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

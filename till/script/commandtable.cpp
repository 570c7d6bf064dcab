// Which commands there are.

#include "till/core/cannotdo.h"
#include "till/script/commands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

const QList<Commands::Command> &Commands::table()
{
    static const QList<Command> commands{
        {u"sale"_s, u"sale"_s, u"opens a sale; the first card, input, add or coupon does it too"_s,
            &Commands::sale},
        {u"return"_s, u"return [NUMBER]"_s,
            u"opens a return of the closed sale NUMBER, or one without a sale"_s,
            &Commands::takeBack},
        {u"card"_s, u"card NUMBER"_s, u"presents a card"_s, &Commands::card},
        {u"input"_s, u"input DATA"_s, u"scans a card, a coupon or an article"_s, &Commands::input},
        {u"add"_s, u"add CODE [QUANTITY] [raw=DATA] [price=P] [options=TEXT]"_s,
            u"adds a position"_s, &Commands::add, true, {u"raw"_s, u"price"_s, u"options"_s}},
        {u"quantity"_s, u"quantity POSITION QUANTITY"_s, u"changes a position's quantity"_s,
            &Commands::quantity},
        {u"storno"_s, u"storno POSITION"_s, u"takes a position off"_s, &Commands::storno},
        {u"coupon"_s, u"coupon NUMBER [raw=DATA]"_s, u"adds a coupon"_s, &Commands::coupon, true,
            {u"raw"_s}},
        {u"total"_s, u"total"_s, u"calculates the sale with the loyalty service"_s,
            &Commands::total},
        {u"points"_s, u"points [AMOUNT]"_s, u"pays with points; without AMOUNT all that can be"_s,
            &Commands::points},
        {u"pay"_s, u"pay cash|card [AMOUNT]"_s, u"pays; without AMOUNT the rest"_s, &Commands::pay},
        {u"close"_s, u"close"_s, u"registers, prints and closes the document"_s, &Commands::close},
        {u"cancel"_s, u"cancel"_s, u"cancels the open document"_s, &Commands::cancel},
        {u"answer"_s, u"answer ok | answer cancel | answer text WORDS"_s,
            u"an answer for the next question"_s, &Commands::answer, false},
        {u"deliver"_s, u"deliver"_s, u"delivers the outgoing queue now"_s, &Commands::deliver},
        {u"close-shift"_s, u"close-shift"_s, u"tells the shift's sums and open ends"_s,
            &Commands::closeShift},
        {u"fault"_s, u"fault WORDS"_s, u"makes korvel-service misbehave"_s, &Commands::fault},
        {u"clock"_s, u"clock TIME | clock real"_s, u"freezes the clock, or lets it run"_s,
            &Commands::clock, false},
        {u"show"_s, u"show"_s, u"shows the open document and what waits"_s, &Commands::show},
        {u"expect"_s, u"expect PATH OP VALUE"_s,
            u"checks what came of the last command; OP: == != < > contains exists absent"_s,
            nullptr, false},
        {u"help"_s, u"help"_s, u"the commands"_s, &Commands::help, false},
    };
    return commands;
}

const Commands::Command &Commands::find(const QString &name)
{
    const auto &commands = table();
    const auto found = std::find_if(commands.cbegin(), commands.cend(),
        [&name](const Command &command) { return command.name == name; });
    if (found == commands.cend())
        throw CannotDo(u"there is no command \"%1\""_s.arg(name), u"help lists the commands"_s);
    return *found;
}

} // namespace till

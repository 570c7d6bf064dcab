// Which commands there are.

#include "till/core/cannotdo.h"
#include "till/script/commands.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

const QList<Commands::Command> &Commands::table()
{
    static const QList<Command> commands{
        {u"sale"_s, u"sale"_s,
            {u"helpSale"_s,
                u"открывает продажу; её же открывает первая карта, input, add или coupon"_s},
            &Commands::sale},
        {u"return"_s, u"return [NUMBER]"_s,
            {u"helpReturn"_s, u"открывает возврат по закрытому чеку NUMBER или возврат без чека"_s},
            &Commands::takeBack},
        {u"card"_s, u"card NUMBER"_s, {u"helpCard"_s, u"предъявляет карту"_s}, &Commands::card},
        {u"input"_s, u"input DATA"_s, {u"helpInput"_s, u"сканирует карту, купон или товар"_s},
            &Commands::input},
        {u"add"_s, u"add CODE [QUANTITY] [raw=DATA] [price=P] [options=TEXT]"_s,
            {u"helpAdd"_s, u"добавляет позицию"_s}, &Commands::add, true,
            {u"raw"_s, u"price"_s, u"options"_s}},
        {u"quantity"_s, u"quantity POSITION QUANTITY"_s,
            {u"helpQuantity"_s, u"меняет количество в позиции"_s}, &Commands::quantity},
        {u"storno"_s, u"storno POSITION"_s, {u"helpStorno"_s, u"снимает позицию"_s},
            &Commands::storno},
        {u"coupon"_s, u"coupon NUMBER [raw=DATA]"_s, {u"helpCoupon"_s, u"добавляет купон"_s},
            &Commands::coupon, true, {u"raw"_s}},
        {u"total"_s, u"total"_s, {u"helpTotal"_s, u"рассчитывает чек в системе лояльности"_s},
            &Commands::total},
        {u"points"_s, u"points [AMOUNT]"_s,
            {u"helpPoints"_s, u"платит баллами; без AMOUNT — сколько можно"_s}, &Commands::points},
        {u"pay"_s, u"pay cash|card [AMOUNT]"_s, {u"helpPay"_s, u"платит; без AMOUNT — остаток"_s},
            &Commands::pay},
        {u"close"_s, u"close"_s, {u"helpClose"_s, u"регистрирует, печатает и закрывает документ"_s},
            &Commands::close},
        {u"cancel"_s, u"cancel"_s, {u"helpCancel"_s, u"отменяет открытый документ"_s},
            &Commands::cancel},
        {u"answer"_s, u"answer ok | answer cancel | answer text WORDS | answer none"_s,
            {u"helpAnswer"_s, u"ответ на следующий вопрос"_s}, &Commands::answer, false},
        {u"deliver"_s, u"deliver"_s, {u"helpDeliver"_s, u"отправляет очередь сейчас"_s},
            &Commands::deliver},
        {u"close-shift"_s, u"close-shift"_s,
            {u"helpCloseShift"_s, u"итоги смены и что осталось незавершённым"_s},
            &Commands::closeShift},
        {u"fault"_s, u"fault WORDS"_s, {u"helpFault"_s, u"заставляет korvel-service сбоить"_s},
            &Commands::fault},
        {u"clock"_s, u"clock TIME | clock real"_s,
            {u"helpClock"_s, u"останавливает часы или пускает их дальше"_s}, &Commands::clock,
            false},
        {u"show"_s, u"show"_s,
            {u"helpShow"_s, u"показывает открытый документ и что ждёт отправки"_s},
            &Commands::show},
        {u"expect"_s, u"expect PATH OP VALUE"_s,
            {u"helpExpect"_s,
                u"проверяет, что дала последняя команда; OP: == != < > contains exists absent"_s},
            nullptr, false},
        {u"help"_s, u"help"_s, {u"helpHelp"_s, u"команды"_s}, &Commands::help, false},
    };
    return commands;
}

const Commands::Command &Commands::find(const QString &name)
{
    const auto &commands = table();
    const auto found = std::find_if(commands.cbegin(), commands.cend(),
        [&name](const Command &command) { return command.name == name; });
    if (found == commands.cend())
        throw CannotDo(tr::Tr(u"scriptNoCommand"_s, u"нет команды «%1»"_s).arg(name),
            {u"scriptNoCommandRemedy"_s, u"список команд покажет help"_s});
    return *found;
}

} // namespace till

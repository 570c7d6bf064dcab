#include "till/script/commands.h"

#include "host/queue/dbqueuebroker.h"
#include "till/core/cannotdo.h"
#include "till/script/fault.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

std::optional<double> takeOptionalAmount(Arguments &arguments)
{
    return arguments.empty() ? std::nullopt : std::optional(arguments.number(u"AMOUNT"_s));
}

PaymentKind paymentKind(const QString &word)
{
    if (word == u"cash")
        return PaymentKind::Cash;
    if (word == u"card")
        return PaymentKind::Card;
    throw CannotDo(tr::Tr(u"scriptNoPayment"_s, u"нет способа оплаты «%1»"_s).arg(word),
        {u"scriptNoPaymentRemedy"_s, u"напишите pay cash или pay card"_s});
}

QDateTime localTime(const QString &word)
{
    const QDateTime time = QDateTime::fromString(word, Qt::ISODate);
    if (!time.isValid())
        throw CannotDo(tr::Tr(u"scriptNoTime"_s, u"«%1» — не время"_s).arg(word),
            {u"scriptNoTimeRemedy"_s, u"напишите время вида 2026-03-01T12:30:00 или real"_s});
    return time.toLocalTime();
}

} // namespace

Commands::Commands(Till &till, AnswerLine &answers, FrozenClock &clock)
    : m_till(till)
    , m_answers(answers)
    , m_clock(clock)
{ }

Outcome Commands::execute(const Command &command, const QStringList &arguments)
{
    Arguments parsed(arguments, command.usage, command.options);
    return (this->*command.handler)(parsed);
}

Outcome Commands::sale(Arguments &arguments)
{
    arguments.end();
    return m_till.openSale();
}

Outcome Commands::takeBack(Arguments &arguments)
{
    if (arguments.empty())
        return m_till.openReturn();
    const QString number = arguments.text(u"NUMBER"_s);
    arguments.end();
    return m_till.openReturnOf(number);
}

Outcome Commands::card(Arguments &arguments)
{
    const QString number = arguments.text(u"NUMBER"_s);
    arguments.end();
    return m_till.presentCard(number, ECardNumberType::Keyed);
}

Outcome Commands::input(Arguments &arguments)
{
    const QString data = arguments.text(u"DATA"_s);
    arguments.end();
    return m_till.scan(data);
}

Outcome Commands::add(Arguments &arguments)
{
    PositionRequest request;
    request.code = arguments.text(u"CODE"_s);
    if (!arguments.empty())
        request.quantity = arguments.positiveNumber(u"QUANTITY"_s);
    arguments.end();
    request.rawData = arguments.option(u"raw"_s).value_or(QString());
    request.price = arguments.numberOption(u"price"_s);
    request.extendedOptions = arguments.option(u"options"_s);
    return m_till.addPosition(request);
}

Outcome Commands::quantity(Arguments &arguments)
{
    const int position = arguments.position();
    const double quantity = arguments.positiveNumber(u"QUANTITY"_s);
    arguments.end();
    return m_till.changeQuantity(position, quantity);
}

Outcome Commands::storno(Arguments &arguments)
{
    const int position = arguments.position();
    arguments.end();
    return m_till.removePosition(position);
}

Outcome Commands::coupon(Arguments &arguments)
{
    const QString number = arguments.text(u"NUMBER"_s);
    arguments.end();
    return m_till.addCoupon(number, arguments.option(u"raw"_s).value_or(QString()));
}

Outcome Commands::total(Arguments &arguments)
{
    arguments.end();
    return m_till.calculate();
}

Outcome Commands::points(Arguments &arguments)
{
    const auto amount = takeOptionalAmount(arguments);
    arguments.end();
    return m_till.payWithPoints(amount);
}

Outcome Commands::pay(Arguments &arguments)
{
    const PaymentKind kind = paymentKind(arguments.text(u"KIND"_s));
    std::optional<double> amount;
    if (!arguments.empty())
        amount = arguments.positiveNumber(u"AMOUNT"_s);
    arguments.end();
    return m_till.pay(kind, amount);
}

Outcome Commands::close(Arguments &arguments)
{
    arguments.end();
    return m_till.close();
}

Outcome Commands::cancel(Arguments &arguments)
{
    arguments.end();
    return m_till.cancel();
}

Outcome Commands::answer(Arguments &arguments)
{
    const QString kind = arguments.text(u"ok|cancel|text|none"_s);
    const QString words = kind == u"text" ? arguments.rest(u"WORDS"_s) : QString();
    arguments.end();
    if (kind == u"ok")
        m_answers.addOk();
    else if (kind == u"cancel")
        m_answers.addCancel();
    else if (kind == u"text")
        m_answers.addText(words);
    else if (kind == u"none")
        m_answers.clear();
    else
        throw CannotDo(tr::Tr(u"scriptNoAnswer"_s, u"«%1» — не ответ"_s).arg(kind),
            {u"scriptNoAnswerRemedy"_s,
                u"напишите answer ok, answer cancel, answer text WORDS или answer none"_s});
    return {};
}

Outcome Commands::deliver(Arguments &arguments)
{
    arguments.end();
    return m_till.deliver();
}

Outcome Commands::closeShift(Arguments &arguments)
{
    arguments.end();
    return m_till.closeShift();
}

Outcome Commands::fault(Arguments &arguments)
{
    sendFault(arguments.rest(u"WORDS"_s));
    return {};
}

Outcome Commands::clock(Arguments &arguments)
{
    const QString time = arguments.text(u"TIME"_s);
    arguments.end();
    if (time == u"real")
        m_clock.release();
    else
        m_clock.freeze(localTime(time));
    return {};
}

Outcome Commands::show(Arguments &arguments)
{
    arguments.end();
    Outcome outcome;
    outcome.notices.append(
        tr::Tr(u"tillWaiting"_s, u"Ждут отправки: %1"_s)
            .arg(QString::number(Singleton<DBQueueBroker>::instance()->waiting())));
    return outcome;
}

Outcome Commands::help(Arguments &arguments)
{
    arguments.end();
    Outcome outcome;
    for (const Command &command : table())
        outcome.notices.append(
            tr::Tr(tr::undefined, u"%1: %2"_s).arg(command.usage).arg(command.summary));
    return outcome;
}

} // namespace till

#include "till/explain/exchangetexts.h"

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

using facts::Ending;
using facts::JournalledExchange;

tr::Tr agreed(const JournalledExchange &exchange)
{
    switch (exchange.operation) {
    case ServiceOperation::Balance:
        return tr::Tr(u"explainBalanceAgreed"_s, u"Система лояльности узнала карту %1"_s)
            .arg(exchange.card);
    case ServiceOperation::Calculate:
        return exchange.codeSent
            ? tr::Tr(u"explainCalculateWithCode"_s,
                u"Система лояльности рассчитала чек и выслала покупателю код подтверждения"_s)
            : tr::Tr(u"explainCalculateAgreed"_s,
                u"Система лояльности рассчитала чек; этим ещё ничего не проведено"_s);
    case ServiceOperation::Register:
        return tr::Tr(
            u"explainRegisterAgreed"_s, u"Система лояльности провела чек под номером операции %1"_s)
            .arg(exchange.answer.transaction);
    case ServiceOperation::Return:
        return {u"explainReturnAgreed"_s, u"Система лояльности провела возврат"_s};
    case ServiceOperation::Rollback:
        return {u"explainRollbackAgreed"_s,
            u"Система лояльности отменила проведённый чек: всё как до него"_s};
    case ServiceOperation::Unknown:
        break;
    }
    return {u"explainUnknownAgreed"_s, u"Система лояльности ответила согласием"_s};
}

tr::Tr refused(const JournalledExchange &exchange)
{
    switch (exchange.operation) {
    case ServiceOperation::Balance:
        return tr::Tr(u"explainBalanceRefused"_s, u"Система лояльности не приняла карту %1"_s)
            .arg(exchange.card);
    case ServiceOperation::Calculate:
        return {u"explainCalculateRefused"_s, u"Система лояльности отказалась рассчитать чек"_s};
    case ServiceOperation::Register:
        return {u"explainRegisterRefused"_s, u"Система лояльности отказалась провести чек"_s};
    case ServiceOperation::Return:
        return {u"explainReturnRefused"_s, u"Система лояльности отказалась провести возврат"_s};
    case ServiceOperation::Rollback:
        return {u"explainRollbackRefused"_s,
            u"Система лояльности отказалась отменить проведённый чек"_s};
    case ServiceOperation::Unknown:
        break;
    }
    return {u"explainUnknownRefused"_s, u"Система лояльности ответила отказом"_s};
}

tr::Tr unanswered(const JournalledExchange &exchange)
{
    switch (exchange.operation) {
    case ServiceOperation::Balance:
        return tr::Tr(
            u"explainBalanceUnanswered"_s, u"На вопрос о карте %1 система лояльности не ответила"_s)
            .arg(exchange.card);
    case ServiceOperation::Calculate:
        return {u"explainCalculateUnanswered"_s,
            u"На запрос расчёта система лояльности не ответила; проведено ничего не было"_s};
    case ServiceOperation::Register:
        return {u"explainRegisterUnanswered"_s,
            u"На запрос провести чек ответа нет: может быть, он проведён, а может быть, и нет"_s};
    case ServiceOperation::Return:
        return {u"explainReturnUnanswered"_s,
            u"На запрос провести возврат ответа нет: может быть, он проведён, а может быть, и нет"_s};
    case ServiceOperation::Rollback:
        return {u"explainRollbackUnanswered"_s,
            u"На запрос отменить проведённый чек ответа нет: может быть, он отменён, а может быть, "
            u"и "
            u"нет"_s};
    case ServiceOperation::Unknown:
        break;
    }
    return {u"explainUnknownUnanswered"_s, u"Система лояльности не ответила"_s};
}

tr::Tr plain(const JournalledExchange &exchange)
{
    switch (exchange.ending) {
    case Ending::Agreed:
        return agreed(exchange);
    case Ending::Refused:
        return refused(exchange);
    case Ending::Unanswered:
        break;
    }
    return unanswered(exchange);
}

// Behind the reason, where one was given.
tr::Tr withCode(const JournalledExchange &exchange)
{
    if (exchange.ending != Ending::Refused)
        return exchange.reason;
    return tr::Tr(u"explainReturnCode"_s, u"код %1, %2"_s)
        .arg(QString::number(*exchange.answer.returnCode))
        .arg(exchange.reason);
}

} // namespace

tr::Tr exchangeText(const JournalledExchange &exchange)
{
    if (exchange.isForeign)
        return tr::Tr(u"explainWithReason"_s, u"%1 (%2)"_s)
            .arg(plain(exchange))
            .arg(tr::Tr(u"explainForeignAnswer"_s, u"ответил кто-то другой"_s));
    const bool hasReason = exchange.ending != Ending::Agreed && !exchange.reason.isEmpty();
    return hasReason
        ? tr::Tr(u"explainWithReason"_s, u"%1 (%2)"_s).arg(plain(exchange)).arg(withCode(exchange))
        : plain(exchange);
}

QString exchangeWord(const JournalledExchange &exchange)
{
    const QString name = operationName(exchange.operation);
    switch (exchange.ending) {
    case Ending::Agreed:
        return name + u"Agreed";
    case Ending::Refused:
        return name + u"Refused";
    case Ending::Unanswered:
        break;
    }
    return name + u"Unanswered";
}

} // namespace till::explain

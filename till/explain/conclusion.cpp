#include "till/explain/conclusion.h"

#include "host/framework/event.h"
#include "till/explain/amounts.h"
#include "till/explain/facts.h"
#include "till/explain/messageconclusion.h"

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

using facts::Ending;

tr::Tr nothingToDo()
{
    return {u"explainNextNothing"_s, u"Ничего делать не нужно"_s};
}

tr::Tr askTheService()
{
    return {u"explainNextAskService"_s,
        u"Спросите владельца системы лояльности, проведён ли документ с этим номером и временем; "
        u"до "
        u"ответа ничего не начисляйте вручную"_s};
}

bool isAgreed(const std::optional<facts::JournalledExchange> &exchange)
{
    return exchange && exchange->ending == Ending::Agreed;
}

bool isUnanswered(const std::optional<facts::JournalledExchange> &exchange)
{
    return exchange && exchange->ending == Ending::Unanswered;
}

Amounts withSpentOnly(const Evidence &evidence)
{
    return evidence.document ? amountsOf(*evidence.document) : Amounts();
}

Conclusion cancelled(const Evidence &evidence)
{
    const auto registration = facts::lastExchange(evidence, ServiceOperation::Register);
    const auto rollback = facts::lastExchange(evidence, ServiceOperation::Rollback);
    if (isAgreed(rollback)) {
        Amounts amounts;
        amounts.balance = rollback->answer.balance;
        return {Whereabouts::Withdrawn,
            {u"explainWhyRolledBack"_s,
                u"Чек был проведён, затем отменён на кассе, и система лояльности отменила его у "
                u"себя: списанное возвращено, начисленное снято"_s},
            nothingToDo(), amounts};
    }
    if (isUnanswered(registration) || isAgreed(registration))
        return {Whereabouts::Unknown,
            {u"explainWhyCancelledUnknown"_s,
                u"Чек отменён на кассе, но на запрос провести его ответа не было или отмена его не "
                u"подтверждена"_s},
            askTheService(), {}};
    return {Whereabouts::Withdrawn,
        {u"explainWhyCancelled"_s,
            u"Документ отменён на кассе до проведения: обещанное при расчёте не списано и не "
            u"начислено"_s},
        nothingToDo(), {}};
}

tr::Tr leaveItToTheOwner()
{
    return {u"explainNextNoCard"_s,
        u"На кассе ничего сделать нельзя: чек продан без карты. Начислить баллы за него может "
        u"только владелец системы лояльности"_s};
}

Conclusion withoutCard(const Evidence &evidence)
{
    const auto balance = facts::lastExchange(evidence, ServiceOperation::Balance);
    if (balance && balance->ending == Ending::Refused)
        return {Whereabouts::NeverEarned,
            tr::Tr(u"explainWhyCardRefused"_s,
                u"Карту %1 система лояльности не приняла, и документ остался без карты"_s)
                .arg(balance->card),
            leaveItToTheOwner(), withSpentOnly(evidence)};
    return {Whereabouts::NeverEarned,
        {u"explainWhyNoCard"_s, u"Карта покупателя не была предъявлена"_s}, leaveItToTheOwner(),
        withSpentOnly(evidence)};
}

Conclusion withTechnicalCard(const Evidence &evidence)
{
    return {Whereabouts::NeverEarned,
        {u"explainWhyTechnicalCard"_s,
            u"Карта покупателя не была предъявлена: чек продан с технической картой, которая не "
            u"копит баллов"_s},
        leaveItToTheOwner(), withSpentOnly(evidence)};
}

tr::Tr bookedText(const Evidence &evidence)
{
    if (!evidence.returns.isEmpty())
        return tr::Tr(u"explainWhyBookedReturned"_s,
            u"Система лояльности провела чек сразу; позже по нему закрыты возвраты: %1"_s)
            .arg(QString::number(evidence.returns.size()));
    return {u"explainWhyBooked"_s, u"Система лояльности провела документ сразу, при закрытии"_s};
}

Conclusion bookedReturn(const Evidence &evidence)
{
    const auto exchange = facts::lastExchange(evidence, ServiceOperation::Return);
    Amounts amounts = amountsOf(*evidence.document);
    if (isAgreed(exchange)) {
        const double sum = amounts.sum.value_or(0.0);
        amounts = amountsOf(ServiceOperation::Return, exchange->answer);
        amounts.sum = sum;
        return {Whereabouts::Booked, bookedText(evidence), nothingToDo(), amounts};
    }
    return {Whereabouts::Booked,
        {u"explainWhyReturnNotQueued"_s,
            u"Возврат закрыт, и в очереди его нет: система лояльности провела его сразу"_s},
        nothingToDo(), amounts};
}

Conclusion withoutTrace(const Evidence &evidence)
{
    if (!evidence.queueProblem.isEmpty())
        return {Whereabouts::Unknown,
            tr::Tr(u"explainWhyQueueUnseen"_s,
                u"Документ закрыт без связи, а очередь отправки посмотреть нельзя: %1"_s)
                .arg(evidence.queueProblem),
            {u"explainNextQueueUnseen"_s,
                u"Сделайте очередь доступной (korvel-till queue status) и спросите ещё раз"_s},
            withSpentOnly(evidence)};
    const auto booking = facts::lastExchange(evidence,
        facts::isReturn(evidence) ? ServiceOperation::Return : ServiceOperation::Register);
    if (booking && booking->isForeign)
        return {Whereabouts::Unknown,
            {u"explainWhyForeign"_s,
                u"На запрос провести документ ответила не система лояльности, и в очередь он не "
                u"попал"_s},
            {u"explainNextForeign"_s,
                u"Проверьте KorvelLoyaltyOnline:url и то, что стоит между кассой и системой "
                u"лояльности; проведён ли документ, знает её владелец"_s},
            withSpentOnly(evidence)};
    return {Whereabouts::Unknown,
        {u"explainWhyNotQueued"_s,
            u"Документ закрыт, но номера операции у него нет и в очереди его нет. Доставленные "
            u"сообщения хранятся Queue:keepDays дней, так что старый документ, вероятно, "
            u"доставлен"_s},
        askTheService(), withSpentOnly(evidence)};
}

// A return has no number of its booking; a journal that is lost or older than its lines of
// exchanges leaves what stands in the queue.
bool isReturnBooked(const Evidence &evidence)
{
    const auto exchange = facts::lastExchange(evidence, ServiceOperation::Return);
    return evidence.queueProblem.isEmpty() && (!exchange || isAgreed(exchange));
}

bool isBooked(const AbstractDocument &document)
{
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    return card && !card->getOperationId().isEmpty();
}

Conclusion closed(const Evidence &evidence)
{
    // Asked again a registered cheque has both: its number, and an older message.
    if (!facts::isReturn(evidence) && isBooked(*evidence.document))
        return {Whereabouts::Booked, bookedText(evidence), nothingToDo(),
            amountsOf(*evidence.document)};
    if (!evidence.messages.isEmpty())
        return concludeByMessage(evidence);
    if (facts::isReturn(evidence) && isReturnBooked(evidence))
        return bookedReturn(evidence);
    return withoutTrace(evidence);
}

// Behind the last word of the service or the plug-in, if that was a refusal.
std::optional<tr::Tr> lastRefusal(const Evidence &evidence)
{
    std::optional<tr::Tr> refusal;
    for (const JournalLine &line : evidence.journal) {
        const auto exchange = facts::exchangeOf(line);
        if (exchange)
            refusal.reset();
        if (exchange && exchange->ending == Ending::Refused)
            refusal = exchange->reason;
        if (line.kind == u"exception")
            refusal = tr::Tr(tr::undefined, line.members.value(u"text").toString());
    }
    return refusal;
}

Conclusion open(const Evidence &evidence)
{
    const AbstractDocument &document = *evidence.document;
    const tr::Tr closeIt{u"explainNextClose"_s,
        u"Закройте документ на кассе: проведённый раньше второй раз не считается"_s};
    if (document.isBookingUnknown() || document.isRegistrationBegun())
        return {Whereabouts::Unknown,
            {u"explainWhyBegun"_s,
                u"Касса остановилась или не получила ответа, когда документ проводился; он ещё "
                u"открыт"_s},
            closeIt, withSpentOnly(evidence)};
    if (isBooked(document))
        return {Whereabouts::Booked,
            {u"explainWhyBookedOpen"_s,
                u"Система лояльности провела чек, но на кассе он ещё не закрыт"_s},
            closeIt, amountsOf(document)};
    if (const auto refusal = lastRefusal(evidence))
        return {Whereabouts::Refused,
            tr::Tr(u"explainWhyRefusedOpen"_s,
                u"Система лояльности отказала, ничего не проведено, документ ещё открыт: %1"_s)
                .arg(*refusal),
            {u"explainNextRefusedOpen"_s,
                u"Устраните причину и закройте документ ещё раз, или отмените его"_s},
            withSpentOnly(evidence)};
    return {Whereabouts::Open,
        {u"explainWhyOpen"_s, u"Документ ещё открыт: проводится он при закрытии"_s},
        {u"explainNextOpen"_s, u"Закройте документ на кассе"_s}, withSpentOnly(evidence)};
}

// Its file is gone; the journal and the queue are what is left.
Conclusion withoutDocument(const Evidence &evidence)
{
    if (!evidence.messages.isEmpty())
        return concludeByMessage(evidence);
    const auto registration = facts::lastExchange(evidence, ServiceOperation::Register);
    const auto back = facts::lastExchange(evidence, ServiceOperation::Return);
    const auto &booking = back ? back : registration;
    if (isAgreed(booking))
        return {Whereabouts::Booked, bookedText(evidence), nothingToDo(),
            amountsOf(booking->operation, booking->answer)};
    return {Whereabouts::Unknown,
        {u"explainWhyNoDocument"_s,
            u"Файла документа нет, а по журналу он не проведён и не отменён"_s},
        askTheService(), {}};
}

} // namespace

Conclusion conclude(const Evidence &evidence, const QString &technicalCardName)
{
    if (facts::hasEvent(evidence, EActivityListener::ChequeCancelled))
        return cancelled(evidence);
    if (!evidence.document)
        return withoutDocument(evidence);
    const auto card = evidence.document->getCardRecord(ECardMode::OnlineLoyalty);
    if (evidence.document->getState() == EDocumentState::Open)
        return open(evidence);
    if (!card)
        return withoutCard(evidence);
    if (card->getCard()->getCardGroup() && !technicalCardName.isEmpty()
        && card->getCard()->getCardGroup()->getName() == technicalCardName)
        return withTechnicalCard(evidence);
    return closed(evidence);
}

} // namespace till::explain

#include "till/core/till.h"

#include "host/framework/activitynotifier.h"
#include "host/framework/session.h"
#include "host/storage/opendocumenthold.h"
#include "till/core/cannotdo.h"
#include "till/core/pluginguard.h"
#include "till/core/triggers.h"

using namespace Qt::StringLiterals;

namespace till {

Till::Till(BasicLoyaltySystem &system, const Catalogue &catalogue, DocumentStore &store,
    const Exchanges &exchanges)
    : m_system(&system)
    , m_catalogue(catalogue)
    , m_store(store)
    , m_exchanges(exchanges)
{ }

QList<tr::Tr> Till::start()
{
    Outcome outcome;
    if (const auto left = m_store.loadOpen()) {
        restore(left);
        turnToSwitchedOff(outcome);
    } else {
        turnToSwitchedOff(outcome);
        notify(outcome, Event(EActivityListener::DocumentEntered));
    }
    return outcome.notices + openQueue();
}

// Without event 22: it would end the loyalty state that is being restored.
void Till::restore(const QSharedPointer<AbstractDocument> &document)
{
    Singleton<Session>::instance()->setCurrentDocument(document);
    m_system->setEffects(document->getEffects());
    Outcome nobodyWaits;
    guarded(nobodyWaits, u"restoreLoyaltySystem"_s, [this] { m_system->restoreLoyaltySystem(); });
}

QSharedPointer<AbstractDocument> Till::document() const
{
    return Singleton<Session>::instance()->getCurrentDocument();
}

void Till::leave(Outcome &outcome)
{
    outcome.left = document();
    Singleton<Session>::instance()->setCurrentDocument({});
    notify(outcome, Event(EActivityListener::DocumentEntered));
    turnToSwitchedOff(outcome);
}

void Till::keep()
{
    if (const auto open = document())
        m_store.saveOpen(open);
}

QSharedPointer<AbstractDocument> Till::openDocument() const
{
    auto open = document();
    if (!open)
        throw CannotDo({u"cannotWithoutDocument"_s, u"нет открытого документа"_s},
            {u"cannotWithoutDocumentRemedy"_s, u"откройте продажу или возврат"_s});
    return open;
}

QSharedPointer<AbstractDocument> Till::openSaleOr(const tr::Tr &reason) const
{
    auto open = openDocument();
    if (open->getType() != EDocumentType::Sale)
        throw CannotDo(
            reason, {u"cannotReturnFirst"_s, u"сначала закройте или отмените возврат"_s});
    return open;
}

QSharedPointer<GoodsItem> Till::openPosition(int posnum) const
{
    auto position = openDocument()->getPosition(posnum);
    if (!position)
        throw CannotDo(tr::Tr(u"cannotFindPosition"_s, u"в документе нет позиции %1"_s)
                           .arg(QString::number(posnum)),
            {u"cannotFindPositionRemedy"_s, u"выберите одну из позиций документа"_s});
    return position;
}

bool Till::isRegistered() const
{
    const auto card = document()->getCardRecord(m_system->getCardMode());
    return card && !card->getOperationId().isEmpty();
}

// What the loyalty service has booked must be what the customer is handed.
void Till::requireChangeable() const
{
    if (!document())
        return;
    if (isRegistered())
        throw CannotDo({u"cannotChangeRegistered"_s,
                           u"чек зарегистрирован в системе лояльности, его нельзя изменить"_s},
            {u"cannotCloseOrCancel"_s, u"закройте или отмените его"_s});
    if (document()->isRegistrationBegun())
        throw CannotDo(
            {u"cannotChangeBegun"_s,
                u"касса остановилась, когда регистрировала чек в системе лояльности; чек нельзя "
                u"изменить"_s},
            document()->getType() == EDocumentType::Sale
                ? tr::Tr(u"cannotCloseOrCancel"_s, u"закройте или отмените его"_s)
                : tr::Tr(u"cannotButClose"_s, u"закройте его"_s));
}

void Till::notify(Outcome &outcome, const Event &event) const
{
    guarded(outcome, u"handleEvent(%1)"_s.arg(static_cast<int>(event.getCode())),
        [&event] { Singleton<ActivityNotifier>::instance()->notify(event); });
}

void Till::request(Outcome &outcome, const QString &name, const std::function<bool()> &operation)
{
    bool answer = false;
    if (!guarded(outcome, name, [&] { answer = operation(); }))
        return;
    outcome.result = answer;
    if (!answer && !outcome.refusal)
        outcome.refusal = Refusal{m_system->getLastErrorString(), m_system->getLastErrorFlag()};
}

void Till::announce(Outcome &outcome, const std::function<void()> &call)
{
    // What the plug-in saves meanwhile lacks what it has granted: that is copied and applied behind
    // the call, and then all of it is kept.
    const OpenDocumentHold hold;
    // Nobody is asked, so nobody need wait.
    if (isLoyaltyOff())
        return call();
    Event started(EActivityListener::LoyaltyRequestStarted);
    started.addArgument(
        u"message"_s, tr::Tr(u"processLoyaltyMessage"_s, u"Обращение к системе лояльности"_s));
    notify(outcome, started);
    call();
    notify(outcome, Event(EActivityListener::LoyaltyRequestFinished));
    document()->setEffects(m_system->getEffects());
}

void Till::runAction(
    const control::Action &action, Outcome &outcome, const std::function<void()> &carryOut)
{
    if (!runTriggersBefore(*m_system, action, outcome))
        return;
    carryOut();
    runTriggersAfter(*m_system, action, outcome);
}

} // namespace till

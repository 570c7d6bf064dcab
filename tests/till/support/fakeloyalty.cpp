#include "tests/till/support/fakeloyalty.h"

using namespace Qt::StringLiterals;

namespace {

QSharedPointer<DocumentImpactDetail> makeDetail(int position, double sum, EDiscountType::type type)
{
    const auto detail = QSharedPointer<DocumentImpactDetail>::create();
    detail->setPosition(position);
    detail->setDiscountSum(sum);
    detail->setDiscountType(type);
    return detail;
}

} // namespace

FakeLoyalty::FakeLoyalty()
{
    m_cardMode = ECardMode::OnlineLoyalty;
    setPluginName(u"FakeLoyalty"_s);
}

void FakeLoyalty::giveDiscount(int position, double sum)
{
    m_discountImpacts.append(QSharedPointer<DiscountImpact>::create(
        makeDetail(position, sum, EDiscountType::Percentage)));
}

void FakeLoyalty::givePoints(int position, double sum)
{
    m_bonusImpactsForSpend.append(
        QSharedPointer<BonusImpact>::create(makeDetail(position, sum, EDiscountType::Points)));
}

void FakeLoyalty::giveBonusRecord(double amount)
{
    DocumentBonusRecord record;
    record.setAmount(amount);
    m_bonusRecords.append(record);
    m_pointsForEarn = amount;
}

void FakeLoyalty::refuseWith(const QString &id, const QString &text, bool flag)
{
    m_lastError = tr::Tr(id, text);
    m_lastErrorFlag = flag;
}

void FakeLoyalty::hookIn(control::EActionType type, ActionTrigger::Order order,
    const ActionTrigger::Handler &handler, ActionTrigger::Priority priority)
{
    addTrigger(ActionTrigger(
        EContext::Code::Cheque, type, order, handler, ActionTrigger::Result::Obey, priority));
}

bool FakeLoyalty::behave(const QString &operation)
{
    calls.append(operation);
    const auto found = behaviour.constFind(operation);
    return found == behaviour.cend() || (*found)();
}

void FakeLoyalty::handleEvent(const Event &event)
{
    behave(u"event %1"_s.arg(static_cast<int>(event.getCode())));
}

bool FakeLoyalty::identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type)
{
    presented = card;
    presentedHow = type;
    return behave(u"identifyByCard"_s);
}

bool FakeLoyalty::request(const QSharedPointer<AbstractDocument> &)
{
    return behave(u"request"_s);
}

bool FakeLoyalty::commit(const QSharedPointer<AbstractDocument> &)
{
    return behave(u"commit"_s);
}

bool FakeLoyalty::rollback(const QSharedPointer<AbstractDocument> &)
{
    return behave(u"rollback"_s);
}

void FakeLoyalty::setPointsForSpend(const QSharedPointer<AbstractDocument> &document, double points)
{
    BasicLoyaltySystem::setPointsForSpend(document, points);
    behave(u"setPointsForSpend"_s);
}

bool FakeLoyalty::spendPoints()
{
    return behave(u"spendPoints"_s);
}

bool FakeLoyalty::hasPointsForEarn()
{
    return behave(u"hasPointsForEarn"_s);
}

bool FakeLoyalty::restoreLoyaltySystem()
{
    return behave(u"restoreLoyaltySystem"_s);
}

void FakeLoyalty::beforePutoutCheck()
{
    behave(u"beforePutoutCheck"_s);
}

void FakeLoyalty::afterPutoutCheck()
{
    behave(u"afterPutoutCheck"_s);
}

#include "plugin/korvelloyaltyonline.h"

#include <functional>

bool KorvelLoyaltyOnline::init()
{
    Singleton<ActivityNotifier>::instance()->subscribe(this);
    addTriggers();
    return registerLoyaltySystem();
}

void KorvelLoyaltyOnline::addTriggers()
{
    using control::EActionType;
    using Order = ActionTrigger::Order;
    using Priority = ActionTrigger::Priority;
    const auto add = [this](EActionType type, Order order, Priority priority, auto handler) {
        addTrigger(ActionTrigger(EContext::Code::Cheque, type, order,
            std::bind_front(handler, this), ActionTrigger::Result::Obey, priority));
    };
    using Plugin = KorvelLoyaltyOnline;
    add(EActionType::Total, Order::Before, Priority::First, &Plugin::addTechnicalCard);
    add(EActionType::PayWithPoints, Order::Before, Priority::First, &Plugin::addTechnicalCard);
    add(EActionType::Input, Order::Before, Priority::Second, &Plugin::beforeInput);
    add(EActionType::AddPosition, Order::Before, Priority::First, &Plugin::beforePositionAdd);
    add(EActionType::AddPosition, Order::After, Priority::First, &Plugin::afterPositionAdd);
    add(EActionType::ApplyModifiers, Order::Before, Priority::First, &Plugin::beforeApplyModifiers);
    add(EActionType::AddCoupon, Order::After, Priority::Third, &Plugin::afterCouponAdd);
}

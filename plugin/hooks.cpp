#include "plugin/korvelloyaltyonline.h"

EContext::Result KorvelLoyaltyOnline::beforeInput(const control::Action &)
{
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::beforePositionAdd(const control::Action &)
{
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::afterPositionAdd(const control::Action &)
{
    return EContext::Result::Continue;
}

EContext::Result KorvelLoyaltyOnline::beforeApplyModifiers(const control::Action &) const
{
    return EContext::Result::Continue;
}

void KorvelLoyaltyOnline::setPropertiesForMarkdownPosition(const QSharedPointer<GoodsItem> &) const
{ }

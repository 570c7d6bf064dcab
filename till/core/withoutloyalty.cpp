#include "till/core/withoutloyalty.h"

using namespace Qt::StringLiterals;

namespace till {

tr::Tr loyaltyIsOff()
{
    return {u"tillLoyaltyOff"_s, u"Лояльность на этой кассе выключена"_s};
}

WithoutLoyalty::WithoutLoyalty()
{
    setPluginName(u"WithoutLoyalty"_s);
    m_lastError = loyaltyIsOff();
}

WithoutLoyalty::~WithoutLoyalty() = default;

bool WithoutLoyalty::init()
{
    return true;
}

bool WithoutLoyalty::identifyByCard(QSharedPointer<DocumentCardRecord> &, ECardNumberType)
{
    return false;
}

bool WithoutLoyalty::request(const QSharedPointer<AbstractDocument> &)
{
    return true;
}

bool WithoutLoyalty::commit(const QSharedPointer<AbstractDocument> &)
{
    return true;
}

bool WithoutLoyalty::rollback(const QSharedPointer<AbstractDocument> &)
{
    return true;
}

} // namespace till

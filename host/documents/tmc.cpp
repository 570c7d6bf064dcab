#include "host/documents/tmc.h"

#include <algorithm>

TmcIndexPrice::TmcIndexPrice(int code, double price)
    : m_code(code)
    , m_price(price)
{ }

bool Tmc::hasIndexPrice(int code) const
{
    return !getIndexPrice(code).isNull();
}

QSharedPointer<TmcIndexPrice> Tmc::getIndexPrice(int code) const
{
    const auto found = std::find_if(m_indexPrices.cbegin(), m_indexPrices.cend(),
        [code](const auto &indexPrice) { return indexPrice->getCode() == code; });
    return found == m_indexPrices.cend() ? QSharedPointer<TmcIndexPrice>() : *found;
}

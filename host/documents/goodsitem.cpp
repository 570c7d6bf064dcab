#include "host/documents/goodsitem.h"

#include "host/documents/money.h"

double GoodsItem::getAppliedShare() const
{
    return m_appliedQuantity > 0.0 ? m_quantity / m_appliedQuantity : 0.0;
}

double GoodsItem::getPointsPaid() const
{
    if (!money::counts(m_appliedPoints))
        return 0.0;
    const double discount = money::roundedToKopecks(m_appliedDiscount * getAppliedShare());
    return money::roundedToKopecks(m_sumBefore - m_sumAfter - discount);
}

void GoodsItem::recalculate()
{
    m_sumBefore = money::roundedToKopecks(m_price * m_quantity);
    const double granted = (m_appliedDiscount + m_appliedPoints) * getAppliedShare();
    m_sumAfter = money::roundedToKopecks(m_sumBefore - granted);
}

QSharedPointer<GoodsItem> GoodsItem::copy() const
{
    auto result = QSharedPointer<GoodsItem>::create();
    result->setObjectName(objectName());
    result->m_posnum = m_posnum;
    result->m_code = m_code;
    result->m_barcode = m_barcode;
    result->m_name = m_name;
    result->m_price = m_price;
    result->m_quantity = m_quantity;
    result->m_sumBefore = m_sumBefore;
    result->m_sumAfter = m_sumAfter;
    result->m_extendedOptions = m_extendedOptions;
    result->m_minRetailPrice = m_minRetailPrice;
    result->m_tmc = m_tmc;
    result->m_unit = m_unit;
    result->m_uniteAvailable = m_uniteAvailable;
    result->m_recalcable = m_recalcable;
    result->m_appliedDiscount = m_appliedDiscount;
    result->m_appliedPoints = m_appliedPoints;
    result->m_appliedQuantity = m_appliedQuantity;
    return result;
}

#include "host/documents/documentimpact.h"

DocumentImpact::DocumentImpact(const QSharedPointer<DocumentImpactDetail> &detail)
    : m_detail(detail)
{ }

DocumentImpact::~DocumentImpact() = default;
DiscountImpact::~DiscountImpact() = default;
BonusImpact::~BonusImpact() = default;

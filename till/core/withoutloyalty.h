#pragma once

#include "host/framework/basicloyaltysystem.h"

namespace till {

/// Says to the cashier that loyalty is switched off at this till.
[[nodiscard]] tr::Tr loyaltyIsOff();

/// Stands in the loyalty system's place while loyalty is switched off at a till: refuses cards,
/// grants nothing, books nothing, and stands in the way of no cheque.
class WithoutLoyalty : public BasicLoyaltySystem
{
public:
    WithoutLoyalty();
    ~WithoutLoyalty() override;

    bool init() override;
    bool identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType type) override;
    bool request(const QSharedPointer<AbstractDocument> &document) override;
    bool commit(const QSharedPointer<AbstractDocument> &document) override;
    bool rollback(const QSharedPointer<AbstractDocument> &document) override;
};

} // namespace till

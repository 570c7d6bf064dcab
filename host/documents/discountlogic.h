#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/mockfactory.h"

/// What `DiscountLogic::process` does with a document.
enum class EDiscountProcessing : int
{
    RemoveLoyalty = 2, ///< takes the loyalty effects off and recomputes
    PrepareForSending = 6, ///< recomputes a made copy
};

/// Applies and removes what loyalty systems grant. `MockFactory<DiscountLogic>::create()`.
class POSHOST_EXPORT DiscountLogic
{
public:
    DiscountLogic() = default;
    virtual ~DiscountLogic();
    Q_DISABLE_COPY_MOVE(DiscountLogic)

    /// `RemoveLoyalty`: applied discounts and points of every position become 0, the document's
    /// loyalty effects empty, its sums are computed anew. `PrepareForSending`: the sums of the
    /// positions are computed anew: before discounts price × quantity, after them that less the
    /// discounts and points applied, in proportion for a part of a position. The positions of a
    /// return keep the sums of their sale unless they are marked recalcable.
    /// @param document never null.
    virtual void process(
        const QSharedPointer<AbstractDocument> &document, EDiscountProcessing mode) const;

    /// Applies discount impacts: what was applied as discount before is replaced. Impacts for
    /// positions that the document does not have change no sum.
    virtual void applyDiscounts(const QSharedPointer<AbstractDocument> &document,
        const QList<QSharedPointer<DiscountImpact>> &impacts) const;
    /// Applies bonus impacts likewise, as points.
    virtual void applyPoints(const QSharedPointer<AbstractDocument> &document,
        const QList<QSharedPointer<BonusImpact>> &impacts) const;
};

extern template class POSHOST_EXPORT MockFactory<DiscountLogic>;

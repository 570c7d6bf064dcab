#pragma once

#include "host/export.h"

#include <QMap>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

namespace control {

/// Actions of the cashier that plug-ins can hook in on.
enum class EActionType : int
{
    ApplyModifiers = 5, ///< values "positionNumber"
    Total = 133, ///< the cheque goes to calculation
    PayWithPoints = 144,
    Input = 192, ///< a scan or keyed data, not yet recognised; value "rawdata"
    AddCoupon = 198, ///< values "couponNumber" and "rawdata"
    AddPosition = 201, ///< values "position" (`QSharedPointer<GoodsItem>`) and "rawdata"
};

/// One action of the cashier with its named values.
///
/// Copies share their values, so a handler that inserts one tells it to whoever started the action.
class POSHOST_EXPORT Action
{
public:
    explicit Action(EActionType type, const QMap<QString, QVariant> &values = {});

    [[nodiscard]] EActionType getType() const { return m_type; }
    /// The value of that name, or the default where there is none.
    [[nodiscard]] QVariant value(const QString &name, const QVariant &defaultValue = {}) const;
    /// Sets a value for everybody who holds this action.
    void insert(const QString &name, const QVariant &value) const;

private:
    EActionType m_type;
    QSharedPointer<QMap<QString, QVariant>> m_values;
};

} // namespace control

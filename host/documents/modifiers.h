#pragma once

#include "host/export.h"

#include <QMap>
#include <QVariant>

namespace modifiers {

/// What the cashier keyed before an action, with the host's own codes.
enum class Type : int
{
    Quantity = 3, ///< value: a `Quantity`
    RepeatedScan = 17, ///< a second scan of the same code raises the quantity of the last position
};

} // namespace modifiers

/// A quantity of goods, in units of the article.
class POSHOST_EXPORT Quantity
{
public:
    Quantity() = default;
    explicit Quantity(double value)
        : m_value(value)
    { }
    [[nodiscard]] double value() const { return m_value; }

private:
    double m_value = 0.0;
};

Q_DECLARE_METATYPE(Quantity)

/// The modifiers that are set on a document, until an action uses them up.
class POSHOST_EXPORT ModifiersContainer
{
public:
    [[nodiscard]] bool isSet(modifiers::Type type) const { return m_values.contains(type); }
    /// Invalid when the modifier is not set.
    [[nodiscard]] QVariant value(modifiers::Type type) const { return m_values.value(type); }
    [[nodiscard]] const QMap<modifiers::Type, QVariant> &all() const { return m_values; }
    void set(modifiers::Type type, const QVariant &value) { m_values.insert(type, value); }
    void clear(modifiers::Type type) { m_values.remove(type); }
    void clearAll() { m_values.clear(); }

private:
    QMap<modifiers::Type, QVariant> m_values;
};

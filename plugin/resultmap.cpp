#include "plugin/resultmap.h"

#include "common/names.h"

namespace resultmap {

double amount(const QMap<QString, QVariant> &map, const QString &key)
{
    return map.value(key).toDouble();
}

double earned(const QMap<QString, QVariant> &map)
{
    return amount(map, korvel::result::activeChargedBonus)
        - amount(map, korvel::result::chargedStatusBonus);
}

QMap<QString, QVariant> positions(const QMap<QString, QVariant> &result)
{
    return result.value(korvel::result::positions).toMap();
}

int positionNumber(const QString &key)
{
    return key.toInt();
}

bool isPresent(const QMap<QString, QVariant> &map, const QString &key)
{
    const QVariant value = map.value(key);
    if (value.isNull())
        return false;
    // A variant that holds a null text is not null itself.
    return value.typeId() != QMetaType::QString || !value.toString().isNull();
}

std::optional<QStringList> messages(const QMap<QString, QVariant> &map, const QString &key)
{
    if (!isPresent(map, key))
        return std::nullopt;
    return map.value(key).toStringList();
}

} // namespace resultmap

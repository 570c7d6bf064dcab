#include "plugin/stickeractions.h"

#include "common/host/documents.h"
#include "common/names.h"
#include "plugin/resultmap.h"

#include <QJsonDocument>

#include <algorithm>

namespace stickeractions {

namespace {

QMap<QString, QVariant> attributesOf(const QVariant &position)
{
    return position.toMap().value(korvel::result::extendedAttributes).toMap();
}

QVariant makeAction(const QVariant &text, const QString &position)
{
    auto action = QJsonDocument::fromJson(text.toByteArray()).toVariant().toMap();
    action.insert(key::position, position);
    return action;
}

QVariant reduced(QMap<QString, QVariant> position, bool removeActions, const QString &marker)
{
    auto attributes = position.value(korvel::result::extendedAttributes).toMap();
    if (removeActions)
        attributes.removeIf(
            [&marker](const auto &attribute) { return attribute.key().contains(marker); });
    if (attributes.isEmpty())
        position.remove(korvel::result::extendedAttributes);
    else
        position.insert(korvel::result::extendedAttributes, attributes);
    return position;
}

} // namespace

bool exist(const QMap<QString, QVariant> &positions, const QString &marker)
{
    return std::any_of(positions.cbegin(), positions.cend(), [&marker](const QVariant &position) {
        const QStringList names = attributesOf(position).keys();
        return std::any_of(names.cbegin(), names.cend(),
            [&marker](const QString &name) { return name.contains(marker); });
    });
}

QList<QVariant> found(const QMap<QString, QVariant> &positions, const QString &marker)
{
    QList<QVariant> actions;
    for (auto position = positions.cbegin(); position != positions.cend(); ++position) {
        const auto attributes = attributesOf(*position);
        for (auto attribute = attributes.cbegin(); attribute != attributes.cend(); ++attribute)
            if (attribute.key().contains(marker))
                actions.append(makeAction(*attribute, position.key()));
    }
    return actions;
}

QString positionOf(const QVariant &action)
{
    return action.toMap().value(key::position).toString();
}

Demand demandOf(const QList<QVariant> &actions)
{
    Demand demand;
    for (const QVariant &variant : actions) {
        const auto action = variant.toMap();
        if (money::equal(demand.balance, 0.0))
            demand.balance = resultmap::amount(action, key::activeBalance);
        demand.needed
            += resultmap::amount(action, key::promocoupons) * action.value(key::amount).toInt();
    }
    return demand;
}

QMap<QString, QVariant> removed(
    const QMap<QString, QVariant> &positions, const QSet<QString> &from, const QString &marker)
{
    auto kept = positions;
    for (auto position = kept.begin(); position != kept.end(); ++position)
        *position
            = reduced(position->toMap(), from.isEmpty() || from.contains(position.key()), marker);
    return kept;
}

} // namespace stickeractions

#include "plugin/stickeractions.h"

#include "common/names.h"

namespace stickeractions {

namespace {

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

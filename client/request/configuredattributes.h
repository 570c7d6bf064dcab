#pragma once

#include <QList>
#include <QString>

/// The attributes of positions as an administrator configured them: sections
/// "KorvelLoyaltyOnline.ExtendedAttributes.…", each one element of a position.
namespace korvelLoyaltyOnline {

/// A pair of a section: "key…" and the "value…" beside it.
struct ConfiguredAttribute
{
    QString key; ///< of the setting
    QString name; ///< may be empty, which makes the pair unusable
    QString mask; ///< of the value
};

struct ConfiguredSection
{
    QString name; ///< as it stands in the configuration
    QList<ConfiguredAttribute> attributes;
};

/// Sections and pairs as they are now, in the order of the configuration. Looking them up takes
/// longer than filling their masks, so a request does it once for all its positions.
[[nodiscard]] QList<ConfiguredSection> configuredSections();

} // namespace korvelLoyaltyOnline

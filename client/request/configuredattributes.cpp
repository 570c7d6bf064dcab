#include "client/request/configuredattributes.h"

#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString sectionPattern = korvel::group + u".ExtendedAttributes.*"_s;
const QString keyPrefix = u"key"_s;
const QString valuePrefix = u"value"_s;

QString setting(const QString &section, const QString &key)
{
    return Singleton<Config>::instance()->getString(section % u':' % key, u""_s);
}

ConfiguredSection configuredSection(const QString &name)
{
    ConfiguredSection section = {name, {}};
    const QStringList keys = Singleton<Config>::instance()->getKeys(name);
    for (const QString &key : keys) {
        if (!key.startsWith(keyPrefix))
            continue;
        const QString valueKey = valuePrefix + key.mid(keyPrefix.size());
        section.attributes.append({key, setting(name, key), setting(name, valueKey)});
    }
    return section;
}

} // namespace

QList<ConfiguredSection> configuredSections()
{
    QList<ConfiguredSection> sections;
    const QStringList names = Singleton<Config>::instance()->getSections(sectionPattern);
    for (const QString &name : names)
        sections.append(configuredSection(name));
    return sections;
}

} // namespace korvelLoyaltyOnline

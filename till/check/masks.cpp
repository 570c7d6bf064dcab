#include "till/check/masks.h"

#include "host/config/valuereaders.h"
#include "till/check/nearest.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString opening = u"${"_s;
// Writes "${" itself.
const QString escaped = u"$${"_s;

bool isKnown(const QString &name, const QStringList &properties)
{
    return std::any_of(properties.cbegin(), properties.cend(), [&name](const QString &property) {
        return name.contains(u'.') ? config::matchesWildcard(name, property)
                                   : property.endsWith(u'.' + name);
    });
}

/// As they can be written, with the object, unless that is a pattern, or without it.
QStringList writable(const QStringList &properties)
{
    QStringList names;
    for (const QString &property : properties)
        names += property.contains(u'*') ? QStringList{property.section(u'.', 1)}
                                         : QStringList{property, property.section(u'.', 1)};
    return names;
}

MaskDefect unknown(const QString &name, const QStringList &properties)
{
    const QString meant = nearest(name, writable(properties));
    return {tr::Tr(u"checkMaskUnknown"_s, u"в маске ${%1} всегда пусто: такого свойства нет"_s)
                .arg(name),
        meant.isEmpty()
            ? tr::Tr(u"checkMaskSeeReference"_s, u"возьмите свойство из docs/settings.md"_s)
            : tr::Tr(u"checkMaskMeant"_s, u"возможно, имелось в виду ${%1}"_s).arg(meant)};
}

} // namespace

QList<MaskDefect> defectsOfMask(const QString &mask, const QStringList &properties)
{
    QList<MaskDefect> found;
    qsizetype behind = 0;
    for (qsizetype start = mask.indexOf(opening); start >= 0;
         start = mask.indexOf(opening, behind)) {
        behind = start + opening.size();
        if (start > 0 && QStringView(mask).mid(start - 1).startsWith(escaped))
            continue;
        const qsizetype end = mask.indexOf(u'}', start);
        if (end < 0) {
            found.append({{u"checkMaskOpen"_s, u"в маске не закрыто «${»"_s},
                {u"checkMaskClose"_s, u"поставьте «}» за именем свойства"_s}});
            break;
        }
        const QString name = mask.mid(behind, end - behind);
        if (!isKnown(name, properties))
            found.append(unknown(name, properties));
        behind = end + 1;
    }
    return found;
}

} // namespace till::check

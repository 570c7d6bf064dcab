#include "host/logging/logtroubles.h"

#include "host/framework/spokenerror.h"

namespace logging {

using namespace Qt::Literals::StringLiterals;

void throwPropertiesUnreadable(const QString &propertiesFile)
{
    throw SpokenError(tr::Tr(u"logPropertiesUnreadable"_s,
        u"%1: настройки журнала не читаются; проверьте путь и права доступа"_s)
                          .arg(propertiesFile));
}

void throwPropertiesUnusable(const QString &propertiesFile, const QString &troubles)
{
    throw SpokenError(
        tr::Tr(u"logPropertiesUnusable"_s, u"%1: настройки журнала не годятся; исправьте их: %2"_s)
            .arg(propertiesFile)
            .arg(troubles));
}

void throwUnwritable(const QString &path)
{
    throw SpokenError(tr::Tr(u"logUnwritable"_s,
        u"%1: журнал не записывается; проверьте, что в его папку можно писать"_s)
                          .arg(path));
}

} // namespace logging

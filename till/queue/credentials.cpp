#include "till/queue/credentials.h"

#include "host/config/config.h"

using namespace Qt::StringLiterals;

namespace till {

QString configuredAuthorization()
{
    const auto *config = Singleton<Config>::instance();
    const QString user = config->getString(u"KorvelLoyaltyOnline:user"_s, {});
    const QString password = config->getString(u"KorvelLoyaltyOnline:password"_s, {});
    // One substitution after the other, as the plug-in does it: a user name with a placeholder in
    // it takes the password up, and services know such users by that.
    const QString credentials = u"%1:%2"_s.arg(user).arg(password);
    return u"Basic "_s + QString::fromLatin1(credentials.toLocal8Bit().toBase64());
}

} // namespace till

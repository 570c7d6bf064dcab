#include "till/window/servicepage.h"

#include "host/config/config.h"

using namespace Qt::StringLiterals;

namespace till {

QUrl servicePage()
{
    const QUrl api(Singleton<Config>::instance()->getString(u"Till:serviceApi"_s, {}));
    return api.isEmpty() ? QUrl()
                         : api.adjusted(QUrl::StripTrailingSlash).resolved(QUrl(u"console"_s));
}

} // namespace till

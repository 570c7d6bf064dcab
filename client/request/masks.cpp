#include "client/request/masks.h"

#include "client/interface.h"
#include "common/host/services.h"

namespace korvelLoyaltyOnline {

QString expandMask(const QString &mask, const QList<QObject *> &objects)
{
    QMap<QString, QString> resolved;
    return MockFactory<SimpleFormatter>::create()->format(
        mask, objects, SimpleFormatter::plain, resolved);
}

QString Interface::formDataByMask(const QString &mask) const
{
    // Always the session's document: a copy made for sending is not known to the host's masks.
    return expandMask(mask, MockFactory<DocumentLogic>::create()->getObjects({}));
}

} // namespace korvelLoyaltyOnline

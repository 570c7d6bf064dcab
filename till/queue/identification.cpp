#include "till/queue/identification.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

QueueMessage messageBeginning(QueueOffice &office, const QString &idBeginning)
{
    const QList<QueueMessage> found = office.find(idBeginning);
    if (found.isEmpty())
        throw CannotDo(u"no message has an id that begins with \"%1\""_s.arg(idBeginning),
            u"see korvel-till queue list --all"_s);
    if (found.size() > 1)
        throw CannotDo(u"several messages have an id that begins with \"%1\""_s.arg(idBeginning),
            u"give more of it"_s);
    return found.constFirst();
}

QStringList idsBeginning(QueueOffice &office, const QStringList &idBeginnings)
{
    QStringList ids;
    for (const QString &beginning : idBeginnings)
        ids.append(messageBeginning(office, beginning).id);
    ids.removeDuplicates();
    return ids;
}

} // namespace till

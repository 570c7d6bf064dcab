#include "till/queue/identification.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

QueueMessage messageBeginning(QueueOffice &office, const QString &idBeginning)
{
    const QList<QueueMessage> found = office.find(idBeginning);
    if (found.isEmpty())
        throw CannotDo(
            tr::Tr(u"queueNoSuchId"_s, u"нет сообщения, идентификатор которого начинается с «%1»"_s)
                .arg(idBeginning),
            {u"queueNoSuchIdRemedy"_s, u"смотрите korvel-till queue list --all"_s});
    if (found.size() > 1)
        throw CannotDo(tr::Tr(u"queueAmbiguousId"_s,
                           u"идентификаторы нескольких сообщений начинаются с «%1»"_s)
                           .arg(idBeginning),
            {u"queueAmbiguousIdRemedy"_s, u"укажите больше знаков"_s});
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

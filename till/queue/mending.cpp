#include "till/queue/mending.h"

#include "till/exitstatus.h"
#include "till/queue/identification.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

using Change = QStringList (QueueOffice::*)(const QStringList &ids);

QString whyUnchanged(const QueueMessage &message)
{
    if (!message.movedTo.isEmpty())
        return u"message %1 was moved to %2; import that file to have it back"_s.arg(
            message.id, message.movedTo);
    return u"message %1 is %2 and stays as it is; see korvel-till queue show %1"_s.arg(
        message.id, stateName(message.state));
}

Json arrayOf(const QStringList &texts)
{
    Json array = Json::array();
    for (const QString &text : texts)
        array.push_back(toJson(text));
    return array;
}

void tell(const QueueOptions &options, const QStringList &changed, const QStringList &unchanged)
{
    if (options.json)
        print(Json{{"changed", arrayOf(changed)}, {"unchanged", arrayOf(unchanged)}});
    else
        print(u"changed: %1\n"_s.arg(changed.size()));
}

int change(const QueueOptions &options, const QStringList &idBeginnings, Change change)
{
    return openQueue(options, oneTimeLogFolder)
        .inOffice([&options, &idBeginnings, change](QueueOffice &office) {
            QStringList unchanged = idsBeginning(office, idBeginnings);
            const QStringList changed = (office.*change)(unchanged);
            for (const QString &id : changed)
                unchanged.removeOne(id);
            tell(options, changed, unchanged);
            for (const QString &id : unchanged)
                complain(whyUnchanged(messageBeginning(office, id)));
            return unchanged.isEmpty() ? 0 : static_cast<int>(ExitStatus::NotAllDone);
        });
}

} // namespace

int retry(const QueueOptions &options, const QStringList &idBeginnings)
{
    return change(options, idBeginnings, &QueueOffice::retry);
}

int setAside(const QueueOptions &options, const QStringList &idBeginnings)
{
    return change(options, idBeginnings, &QueueOffice::setAside);
}

} // namespace till::queuecommands

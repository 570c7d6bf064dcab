#include "till/queue/transfer.h"

#include "host/config/config.h"
#include "till/core/cannotdo.h"
#include "till/core/loyaltyverdict.h"
#include "till/exitstatus.h"
#include "till/queue/credentials.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

int tell(const QueueOptions &options, const char *what, int count)
{
    if (options.json)
        print(Json{{what, count}});
    else
        print(u"%1: %2\n"_s.arg(QString::fromLatin1(what)).arg(count));
    return static_cast<int>(ExitStatus::Success);
}

} // namespace

int exportMessages(const QueueOptions &options, const QString &fileName)
{
    if (QFileInfo::exists(fileName))
        throw CannotDo(u"%1: is there already"_s.arg(fileName), u"choose another name"_s);
    DBQueueBroker &queue = openQueue(options, oneTimeLogFolder);
    const int count
        = queue.inOffice([&fileName](QueueOffice &office) { return office.exportTo(fileName); });
    if (const int left = queue.waiting(); left > 0)
        complain(u"%1 messages are in a deliverer's hands or came meanwhile and stay here; export "
                 u"them to another file later"_s.arg(left));
    return tell(options, "exported", count);
}

int importMessages(const QueueOptions &options, const QString &fileName)
{
    if (!QFileInfo(fileName).isFile())
        throw CannotDo(u"%1: there is no such file"_s.arg(fileName),
            u"name one that korvel-till queue export has written"_s);
    return tell(options, "imported",
        openQueue(options, oneTimeLogFolder).inOffice([&fileName](QueueOffice &office) {
            return office.importFrom(fileName, configuredAuthorization());
        }));
}

int reauthorise(const QueueOptions &options)
{
    DBQueueBroker &queue = openQueue(options, oneTimeLogFolder);
    if (!Singleton<Config>::instance()->contains(u"KorvelLoyaltyOnline:user"_s))
        throw CannotDo(u"the settings have no KorvelLoyaltyOnline:user"_s,
            u"set it, or name the till's settings with --config"_s);
    return tell(options, "changed", queue.inOffice([](QueueOffice &office) {
        return office.reauthorise(loyaltyQueue, configuredAuthorization());
    }));
}

} // namespace till::queuecommands

#include "till/queue/transfer.h"

#include "host/config/config.h"
#include "till/core/cannotdo.h"
#include "till/core/loyaltyverdict.h"
#include "till/exitstatus.h"
#include "till/queue/credentials.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include "till/queue/queuetexts.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

int tell(const QueueOptions &options, const char *member, const tr::Tr &text, int count)
{
    if (options.json)
        print(Json{{member, count}});
    else
        print(text.arg(QString::number(count)).ui() + u'\n');
    return static_cast<int>(ExitStatus::Success);
}

} // namespace

int exportMessages(const QueueOptions &options, const QString &fileName)
{
    if (QFileInfo::exists(fileName))
        throw CannotDo(tr::Tr(u"queueExportThere"_s, u"%1: такой файл уже есть"_s).arg(fileName),
            {u"queueExportThereRemedy"_s, u"выберите другое имя"_s});
    DBQueueBroker &queue = openQueue(options, oneTimeLogFolder);
    const int count
        = queue.inOffice([&fileName](QueueOffice &office) { return office.exportTo(fileName); });
    if (const int left = queue.waiting(); left > 0)
        complain(tr::Tr(u"queueExportLeft"_s,
            u"%n сообщений сейчас отправляются или только что поступили и остаются здесь; "
            u"выгрузите их позже в другой файл"_s)
                     .ui(left));
    return tell(options, "exported", tr::Tr(u"queueExported"_s, u"выгружено: %1"_s), count);
}

int importMessages(const QueueOptions &options, const QString &fileName)
{
    if (!QFileInfo(fileName).isFile())
        throw CannotDo(tr::Tr(u"queueImportMissing"_s, u"%1: нет такого файла"_s).arg(fileName),
            {u"queueImportMissingRemedy"_s,
                u"укажите файл, который записала команда korvel-till queue export"_s});
    return tell(options, "imported", tr::Tr(u"queueImported"_s, u"загружено: %1"_s),
        openQueue(options, oneTimeLogFolder).inOffice([&fileName](QueueOffice &office) {
            return office.importFrom(fileName, configuredAuthorization());
        }));
}

int reauthorise(const QueueOptions &options)
{
    DBQueueBroker &queue = openQueue(options, oneTimeLogFolder);
    if (!Singleton<Config>::instance()->contains(u"KorvelLoyaltyOnline:user"_s))
        throw CannotDo({u"queueNoUser"_s, u"в настройках нет KorvelLoyaltyOnline:user"_s},
            {u"queueNoUserRemedy"_s, u"задайте его или укажите настройки кассы через --config"_s});
    return tell(options, "changed", queuetexts::changed, queue.inOffice([](QueueOffice &office) {
        return office.reauthorise(loyaltyQueue, configuredAuthorization());
    }));
}

} // namespace till::queuecommands

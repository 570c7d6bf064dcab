#include "till/queue/mending.h"

#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/identification.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include "till/queue/queuetexts.h"
#include "till/queue/stateselection.h"

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

// In one step, so that a till that enqueues never waits long for the file.
constexpr int changedInOneStep = 200;

/// What one of the commands does.
struct Change
{
    QStringList (QueueOffice::*change)(const QStringList &ids) = nullptr;
    QList<MessageState> states; ///< of the messages that it can change
};

const Change retrying{
    &QueueOffice::retry, {MessageState::Pending, MessageState::Refused, MessageState::Parked}};
const Change settingAside{&QueueOffice::setAside, {MessageState::Pending, MessageState::Refused}};

tr::Tr whyUnchanged(const QueueMessage &message)
{
    if (!message.movedTo.isEmpty())
        return tr::Tr(u"queueUnchangedMoved"_s,
            u"сообщение %1 перенесено в %2; чтобы вернуть его, загрузите этот файл"_s)
            .arg(message.id)
            .arg(message.movedTo);
    return tr::Tr(u"queueUnchanged"_s,
        u"сообщение %1 в состоянии %2 и остаётся как есть; смотрите korvel-till queue show %1"_s)
        .arg(message.id)
        .arg(stateName(message.state));
}

/// Tells which messages were changed while that goes on: a million of them are never in memory
/// together.
class Telling
{
public:
    explicit Telling(bool json)
        : m_json(json)
    {
        if (m_json)
            print(u"{\"changed\":["_s);
    }
    void changed(const QStringList &ids)
    {
        m_count += ids.size();
        for (const QString &id : m_json ? ids : QStringList()) {
            print(QString::fromStdString(m_before + Json(toJson(id)).dump()));
            m_before = ",";
        }
    }
    void end(const QStringList &unchanged)
    {
        if (m_json)
            print(
                u"],\"unchanged\":%1}\n"_s.arg(QString::fromStdString(arrayOf(unchanged).dump())));
        else
            print(queuetexts::changed.arg(QString::number(m_count)).ui() + u'\n');
    }

private:
    static Json arrayOf(const QStringList &texts)
    {
        Json array = Json::array();
        for (const QString &text : texts)
            array.push_back(toJson(text));
        return array;
    }

    bool m_json;
    qsizetype m_count = 0;
    const char *m_before = ""; ///< what stands before the next id
};

int changeNamed(
    QueueOffice &office, const Change &change, const QStringList &idBeginnings, bool json)
{
    QStringList unchanged = idsBeginning(office, idBeginnings);
    const QStringList changed = (office.*change.change)(unchanged);
    for (const QString &id : changed)
        unchanged.removeOne(id);
    Telling telling(json);
    telling.changed(changed);
    telling.end(unchanged);
    for (const QString &id : unchanged)
        complain(whyUnchanged(messageBeginning(office, id)).ui());
    return static_cast<int>(unchanged.isEmpty() ? ExitStatus::Success : ExitStatus::NotAllDone);
}

int changeOfStates(
    QueueOffice &office, const Change &change, const QList<MessageState> &states, bool json)
{
    Telling telling(json);
    QueueOffice::Page page{states, 0, changedInOneStep};
    for (;;) {
        const QList<QueueMessage> messages = office.list(page);
        if (messages.isEmpty())
            break;
        page.behind = messages.constLast().number;
        QStringList ids;
        for (const QueueMessage &message : messages)
            ids.append(message.id);
        telling.changed((office.*change.change)(ids));
    }
    telling.end({});
    return static_cast<int>(ExitStatus::Success);
}

void checkOneWay(const Meant &meant)
{
    const int ways = (meant.idBeginnings.isEmpty() ? 0 : 1) + (meant.states.isEmpty() ? 0 : 1)
        + (meant.all ? 1 : 0);
    if (ways != 1)
        throw CannotDo(ways == 0
                ? tr::Tr(u"queueNoneNamed"_s, u"не указано ни одного сообщения"_s)
                : tr::Tr(u"queueNamedTwoWays"_s, u"сообщения указаны более чем одним способом"_s),
            {u"queueNamedRemedy"_s, u"укажите идентификаторы, или --state-of, или --all"_s});
}

int execute(const QueueOptions &options, const Meant &meant, const Change &change)
{
    checkOneWay(meant);
    const QList<MessageState> states = changeableStates(meant.states, change.states);
    return openQueue(options, oneTimeLogFolder).inOffice([&](QueueOffice &office) {
        return meant.idBeginnings.isEmpty()
            ? changeOfStates(office, change, states, options.json)
            : changeNamed(office, change, meant.idBeginnings, options.json);
    });
}

} // namespace

int retry(const QueueOptions &options, const Meant &meant)
{
    return execute(options, meant, retrying);
}

int setAside(const QueueOptions &options, const Meant &meant)
{
    return execute(options, meant, settingAside);
}

} // namespace till::queuecommands

#include "till/queue/mending.h"

#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/queue/identification.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include "till/queue/stateselection.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

// In one step, so that a till that enqueues never waits long for the file.
constexpr int changedInOneStep = 200;

/// What one of the commands does.
struct Change
{
    QStringList (QueueOffice::*change)(const QStringList &ids);
    QList<MessageState> states; ///< of the messages that it can change
};

const Change retrying{
    &QueueOffice::retry, {MessageState::Pending, MessageState::Refused, MessageState::Parked}};
const Change settingAside{&QueueOffice::setAside, {MessageState::Pending, MessageState::Refused}};

QString whyUnchanged(const QueueMessage &message)
{
    if (!message.movedTo.isEmpty())
        return u"message %1 was moved to %2; import that file to have it back"_s.arg(
            message.id, message.movedTo);
    return u"message %1 is %2 and stays as it is; see korvel-till queue show %1"_s.arg(
        message.id, stateName(message.state));
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
            std::fputs("{\"changed\":[", stdout);
    }
    void changed(const QStringList &ids)
    {
        m_count += ids.size();
        for (const QString &id : m_json ? ids : QStringList()) {
            std::fputs((m_before + Json(toJson(id)).dump()).c_str(), stdout);
            m_before = ",";
        }
    }
    void end(const QStringList &unchanged)
    {
        if (m_json)
            print(
                u"],\"unchanged\":%1}\n"_s.arg(QString::fromStdString(arrayOf(unchanged).dump())));
        else
            print(u"changed: %1\n"_s.arg(m_count));
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
        complain(whyUnchanged(messageBeginning(office, id)));
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
        throw CannotDo(
            ways == 0 ? u"no message is named"_s : u"messages are named in more than one way"_s,
            u"give ids, or --state-of, or --all"_s);
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

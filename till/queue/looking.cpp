#include "till/queue/looking.h"

#include "host/framework/currenttime.h"
#include "host/text/plaintext.h"
#include "till/configuration.h"
#include "till/exitstatus.h"
#include "till/queue/backlog.h"
#include "till/queue/identification.h"
#include "till/queue/masks.h"
#include "till/queue/messageobject.h"
#include "till/queue/messagetable.h"
#include "till/queue/messagetext.h"
#include "till/queue/metrics.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include "till/queue/stateselection.h"
#include "till/queue/statusreport.h"

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

const QList<MessageState> everyState{MessageState::Pending, MessageState::Sending,
    MessageState::Delivered, MessageState::Refused, MessageState::Parked};

QList<MessageState> wantedStates(bool all, const QStringList &names)
{
    const QList<MessageState> states = statesNamed(names);
    return states.isEmpty() && all ? everyState : states;
}

// Page by page: a million messages are never in memory together.
void forEachPage(QueueOffice &office, const QList<MessageState> &states,
    const std::function<void(const QList<QueueMessage> &)> &write)
{
    QueueOffice::Page page{states, 0, QueueOffice::Page().size};
    for (;;) {
        const QList<QueueMessage> messages = office.list(page);
        if (messages.isEmpty())
            return;
        write(messages);
        page.behind = messages.constLast().number;
    }
}

void printArray(QueueOffice &office, const QList<MessageState> &states)
{
    QString before = u"[\n"_s;
    forEachPage(office, states, [&before](const QList<QueueMessage> &messages) {
        for (const QueueMessage &message : messages) {
            print(before + jsonText(listedMessage(message)));
            before = u",\n"_s;
        }
    });
    print(before.startsWith(u'[') ? u"[]\n"_s : u"\n]\n"_s);
}

void printTable(QueueOffice &office, const QList<MessageState> &states)
{
    MessageTable table(stdout, MessageTable::widthFor(stdout));
    forEachPage(
        office, states, [&table](const QList<QueueMessage> &messages) { table.write(messages); });
}

} // namespace

int list(const QueueOptions &options, bool all, const QStringList &states)
{
    const QList<MessageState> wanted = wantedStates(all, states);
    openQueue(options, oneTimeLogFolder).inOffice([&options, &wanted](QueueOffice &office) {
        options.json ? printArray(office, wanted) : printTable(office, wanted);
    });
    return static_cast<int>(ExitStatus::Success);
}

namespace {

struct Judged
{
    QueueOffice::Status figures;
    QDateTime now;
    Backlog backlog;
};

Judged judged(const QueueOptions &options)
{
    Judged judged;
    judged.figures = openQueue(options, oneTimeLogFolder).inOffice([](QueueOffice &office) {
        return office.status();
    });
    judged.now = MockFactory<CurrentTime>::create()->currentDateTime();
    judged.backlog = judgeBacklog(judged.figures, judged.now, BacklogLimits::configured());
    return judged;
}

} // namespace

int status(const QueueOptions &options)
{
    const auto [figures, now, backlog] = judged(options);
    if (options.json)
        print(statusObject(figures, now, backlog));
    else
        print(plaintext::block(statusText(figures, now, backlog)));
    return static_cast<int>(backlog.level);
}

int metrics(const QueueOptions &options)
{
    const auto [figures, now, backlog] = judged(options);
    if (options.json)
        print(statusObject(figures, now, backlog));
    else
        print(metricsText(figures, now, backlog.level, isLoyaltyWanted()));
    return static_cast<int>(ExitStatus::Success);
}

int show(const QueueOptions &options, const QString &idBeginning, bool plain)
{
    const QueueMessage message
        = openQueue(options, oneTimeLogFolder).inOffice([&idBeginning](QueueOffice &office) {
              return messageBeginning(office, idBeginning);
          });
    const QueueMessage shown = plain ? message : masks::masked(message);
    if (options.json)
        print(wholeMessage(shown));
    else
        print(messageText(shown));
    return static_cast<int>(ExitStatus::Success);
}

} // namespace till::queuecommands

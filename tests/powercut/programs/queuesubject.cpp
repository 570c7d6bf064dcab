#include "host/queue/dbqueuebroker.h"
#include "tests/powercut/marker.h"
#include "tests/powercut/programs/subjects.h"
#include "tests/support/scriptedserver.h"

#include <sys/resource.h>

#include <csignal>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr int messages = 60;
constexpr quint32 messagesToADelivery = 4;
constexpr quint32 messagesToARestart = 25;
// Room for what is spilled, too little for the queue's own file.
constexpr rlim_t roomOnAFullDisk = 16 * 1024;
const QString queueName = u"loyalty"_s;

/// As a full disk: no file can grow beyond a few bytes while this lives.
class FullDisk
{
public:
    FullDisk()
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{roomOnAFullDisk, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
};

struct NamedOutcome
{
    QString name;
    Verdict::Outcome outcome;
};

// Most are delivered, as in a shop.
const std::vector<NamedOutcome> &outcomes()
{
    static const std::vector<NamedOutcome> all{
        {u"delivered"_s, Verdict::Outcome::Delivered},
        {u"delivered"_s, Verdict::Outcome::Delivered},
        {u"refused"_s, Verdict::Outcome::Refused},
        {u"pending"_s, Verdict::Outcome::TryAgain},
    };
    return all;
}

class QueueSubject
{
public:
    explicit QueueSubject(quint32 seed)
        : m_seed(seed)
        , m_random(seed)
    {
        m_service.answer("<answer/>");
        judge();
    }

    void run()
    {
        for (int message = 1; message <= messages; ++message) {
            enqueue(message);
            if (m_random() % messagesToADelivery == 0)
                deliver();
            if (m_random() % messagesToARestart == 0)
                restart();
        }
    }

private:
    static DBQueueBroker *queue() { return Singleton<DBQueueBroker>::instance(); }

    void judge()
    {
        queue()->setVerdict(queueName, [this](int, const QByteArray &) { return verdict(); });
    }

    Verdict verdict()
    {
        const NamedOutcome &chosen = outcomes().at(m_random() % outcomes().size());
        const int message = samples::messageOf(m_service.requests().last().body);
        mark(u"attempted %1 %2"_s.arg(message).arg(chosen.name));
        return {chosen.outcome, {}};
    }

    void enqueue(int message)
    {
        const QVariantMap contents{{u"url"_s, m_service.url().toString()},
            {u"body"_s, QString::fromUtf8(samples::body(m_seed, message))}};
        const auto full
            = samples::comesWithFullDisk(message) ? std::make_unique<FullDisk>() : nullptr;
        queue()->enqueue(queueName, contents, QString::number(message));
        mark(u"enqueued %1"_s.arg(message));
    }

    void deliver()
    {
        queue()->deliver();
        mark(u"passed"_s);
    }

    void restart()
    {
        Singleton<DBQueueBroker>::reset();
        judge();
        mark(u"restarted"_s);
    }

    quint32 m_seed;
    std::mt19937 m_random;
    ScriptedServer m_service;
};

} // namespace

void keepMessages(quint32 seed)
{
    std::signal(SIGXFSZ, SIG_IGN);
    QueueSubject(seed).run();
    Singleton<DBQueueBroker>::reset();
}

} // namespace powercut

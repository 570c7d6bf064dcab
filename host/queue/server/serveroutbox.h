#pragma once

#include "host/framework/tr.h"
#include "host/queue/fileoutbox.h"

#include <chrono>
#include <memory>

/// Keeps messages in a queue that many machines share, and while its server cannot be reached, in
/// this machine's own queue, from which they move there later: in order, each once.
///
/// A message is in the shared queue or here, and is sent from the shared queue only: what is here
/// may have others of its till before it there. It moves before anything newer of this machine is
/// put there.
///
/// A sale waits for the server no longer than `longestWait`. What made it wait is not tried again
/// for `pauseAfterWait`. Messages move for `longestMove` at a time, so that many of them are no
/// wait either.
class POSHOST_EXPORT ServerOutbox : public Outbox
{
public:
    static constexpr std::chrono::milliseconds longestWait{2000};
    static constexpr std::chrono::milliseconds longestMove{1000};
    static constexpr std::chrono::milliseconds pauseAfterWait{10000};

    /// Connects to nothing yet.
    /// @param address as `ServerAddress` reads it; with a wrong one messages stay here.
    ServerOutbox(QString address, std::unique_ptr<FileOutbox> local);
    ~ServerOutbox() override;

    void put(const QueueMessage &message) override;
    /// @throws QueueUnreached when the server cannot be reached.
    [[nodiscard]] MessageStore &store() override;
    [[nodiscard]] QList<MessageStore *> toLookAt() override;
    [[nodiscard]] QString folder() const override { return m_local->folder(); }
    [[nodiscard]] bool isShared() const override { return true; }
    [[nodiscard]] QList<QueueMessage> spilled() override { return m_local->spilled(); }
    [[nodiscard]] tr::Tr unreached() const override { return m_lastFailure; }
    void close(const QueueUnusable &error) override;

private:
    using Clock = std::chrono::steady_clock;

    MessageStore &reach(Clock::time_point deadline);
    bool moveOver(Clock::time_point until);
    void pause(const QueueUnusable &cause);
    void putHere(const QueueMessage &message);
    bool moveSome(MessageStore &local);
    template <typename Work> void bounded(const Work &work);

    QString m_address; ///< may have a password: never for a log
    std::unique_ptr<FileOutbox> m_local;
    QString m_owner; ///< the same however often the server is reached again
    std::unique_ptr<MessageStore> m_store;
    Clock::time_point m_pauseUntil{};
    tr::Tr m_lastFailure;
};

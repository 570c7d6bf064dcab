#pragma once

#include "emulator/http/server.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace emulator {

/// A service that answers when the test says so: each request waits until `next` has handed it out
/// and its answer is given, but for "/at-once".
class HeldService
{
public:
    struct Asked
    {
        HttpRequest request;
        Respond respond;
    };

    HeldService();
    ~HeldService(); ///< every request must have its answer by then

    QString url() const { return m_url; }

    /// Blocks until a request has come that was not handed out yet.
    Asked next();

private:
    void take(const HttpRequest &request, const Respond &respond);

    std::mutex m_mutex;
    std::condition_variable m_hasCome;
    std::deque<Asked> m_asked;
    Server m_server;
    const QString m_url; ///< the server may be asked only while it does not run
    std::thread m_thread;
};

} // namespace emulator

#pragma once

#include "emulator/recording/recordingfolder.h"
#include "emulator/recording/upstream.h"
#include "emulator/soap/schema.h"

#include <QElapsedTimer>

#include <memory>

namespace boost::asio {
class thread_pool;
}

namespace emulator {

struct RecorderSettings
{
    UpstreamSettings upstream;
    QString folder;
    bool masksCards = false;
};

/// Stands between tills and a real service: passes each request on, gives the answer back, then
/// writes both down, and tells each exchange on standard error. Exchanges do not wait for each
/// other. An exchange that cannot be written is told too; the till has its answer.
class Recorder
{
public:
    /// Throws RecordingError or UpstreamError.
    explicit Recorder(const RecorderSettings &settings);
    ~Recorder();

    /// On one thread. Responds at once to what no till has sent, to the others from a thread of
    /// its own.
    void answer(const HttpRequest &request, const Respond &respond);

    /// Cuts off the exchanges that still wait for the service, and blocks until everything is
    /// answered and written.
    void stop();

private:
    RecordedExchange begun(const HttpRequest &request);
    void pass(const HttpRequest &request, const Respond &respond, RecordedExchange exchange,
        const QElapsedTimer &time) const;
    void keep(RecordedExchange exchange) const;

    const bool m_masksCards;
    const MessageSchema m_schema;
    RecordingFolder m_folder;
    Upstream m_upstream;
    std::unique_ptr<boost::asio::thread_pool>
        m_threads; ///< goes first: what runs on it uses the others
};

} // namespace emulator

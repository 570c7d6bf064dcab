#pragma once

#include "host/framework/baseactivitylistener.h"
#include "till/core/exchanges.h"
#include "till/transcript/cashier.h"
#include "till/transcript/recorder.h"

namespace till {

/// Listens to the activity events and notes them. Subscribed before the plug-in is loaded, it sees
/// each event before the plug-in acts on it.
class RecordingListener : public BaseActivityListener
{
    Q_OBJECT

public:
    explicit RecordingListener(Recorder &recorder)
        : m_recorder(recorder)
    { }
    void handleEvent(const Event &event) override;

private:
    Recorder &m_recorder;
};

/// The host's services as the till runs them: real, and noted by a recorder.
///
/// In place while it lives; one at a time. Dialogs are answered by the cashier.
class RecordingServices
{
public:
    /// Neither is owned; both must outlive this.
    RecordingServices(Recorder &recorder, Cashier &cashier);
    ~RecordingServices();
    Q_DISABLE_COPY_MOVE(RecordingServices)

    [[nodiscard]] const Exchanges &exchanges() const { return m_exchanges; }

private:
    RecordingListener m_listener;
    Exchanges m_exchanges;
};

} // namespace till

#pragma once

#include "till/run/options.h"
#include "till/window/servicestate.h"

#include <QObject>
#include <QProcess>

namespace till {

/// Looks at a queue that many tills share without keeping the window waiting for its server.
///
/// The look is a program of its own, `korvel-till queue status`, as the shop's monitoring takes it:
/// the connection to the queue belongs to the thread that sells. On the thread of the windows.
class QueueGlance : public QObject
{
    Q_OBJECT

public:
    /// @param program `korvel-till`.
    /// @param options of the till whose queue it is; its configuration and state folder count.
    QueueGlance(const QString &program, const RunOptions &options);
    /// Ends a look that goes on.
    ~QueueGlance() override;

    /// Begins a look, unless one goes on.
    void look();

Q_SIGNALS:
    void seen(const QueueOffice::Status &status);
    /// @param reason one line.
    void failed(const QString &reason);

private:
    void read();

    QProcess m_process;
};

} // namespace till

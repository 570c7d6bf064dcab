#pragma once

#include "host/framework/tr.h"

#include <QProcess>
#include <QUrl>

#include <chrono>

namespace till {

/// A loyalty service of the demonstration's own: `korvel-service` with its sample data, as a child
/// process on a free loopback port. It ends with this object, and with this program also when that
/// is killed. On the thread of the windows.
class DemoService
{
public:
    /// How long a start may take.
    static constexpr std::chrono::seconds longestStart{10};

    /// `korvel-service` beside this program, otherwise the one that PATH finds; empty: there is
    /// none.
    [[nodiscard]] static QString findProgram();

    /// Starts it and waits until it listens, with a progress that can be cancelled.
    /// @throws SpokenError when it cannot.
    explicit DemoService(const QString &program, std::chrono::milliseconds limit = longestStart);
    ~DemoService();
    Q_DISABLE_COPY_MOVE(DemoService)

    /// Where it answers, with a slash at the end.
    [[nodiscard]] QUrl url() const { return m_url; }
    [[nodiscard]] qint64 processId() const { return m_process.processId(); }

private:
    void start(const QString &program);
    void waitForUrl(std::chrono::milliseconds limit);
    void end();
    [[nodiscard]] tr::Tr whyNot() const;

    QProcess m_process;
    QUrl m_url;
};

} // namespace till

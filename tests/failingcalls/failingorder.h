#pragma once

#include "tests/failingcalls/calls/control.h"

#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryFile>

namespace failingcalls {

/// The order to a till that one of its calls fails, and the count of them.
class FailingOrder
{
public:
    /// @param failing which call fails, from 1; 0: they are only counted.
    FailingOrder(Call call, qint64 failing);
    ~FailingOrder();
    Q_DISABLE_COPY_MOVE(FailingOrder)

    /// What the till must be started with.
    /// @param stateFolder of the till.
    [[nodiscard]] QProcessEnvironment environment(const QString &stateFolder) const;
    /// From now on it counts.
    void begin();
    [[nodiscard]] qint64 counted() const { return m_control->counted; }
    /// Whether the call has failed.
    [[nodiscard]] bool hasFailed() const { return m_control->failed > 0; }

private:
    const Call m_call;
    QTemporaryFile m_file;
    Control *m_control = nullptr;
};

} // namespace failingcalls

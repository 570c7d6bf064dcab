#pragma once

#include <QDateTime>

namespace till {

/// Stands in for the host's clock while it lives: frozen at a time, or showing the real one.
class FrozenClock
{
public:
    FrozenClock();
    ~FrozenClock();
    Q_DISABLE_COPY_MOVE(FrozenClock)

    /// @param time valid, local.
    void freeze(const QDateTime &time) { m_time = time; }
    void release() { m_time = {}; }

private:
    QDateTime m_time; ///< invalid while the real time counts
};

} // namespace till

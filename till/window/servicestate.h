#pragma once

#include "host/queue/queueoffice.h"

#include <QDateTime>
#include <QString>

#include <chrono>

namespace till {

/// Whether the loyalty service can be reached, as the exchanges so far tell. A value type.
class Connection
{
public:
    /// @param exchanges how many were begun so far; none since the last look changes nothing.
    /// @param succeeded whether the last of them ended with a 2xx answer.
    void observe(int exchanges, bool succeeded, const QDateTime &now);

    [[nodiscard]] bool isOffline() const { return m_offlineSince.isValid(); }
    [[nodiscard]] QString text() const;

private:
    int m_exchanges = 0;
    QDateTime m_offlineSince; ///< when the first of the exchanges in a row failed; invalid: none
};

/// What waits in the outgoing queue, in one line.
[[nodiscard]] QString queueText(const QueueOffice::Status &status, const QDateTime &now);

/// A time that has passed in its two largest units: "12 мин", "3 ч 5 мин".
[[nodiscard]] QString ageText(std::chrono::seconds age);

} // namespace till

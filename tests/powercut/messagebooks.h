#pragma once

#include <QString>
#include <QStringList>

#include <map>

namespace powercut {

/// The queue's messages as the subject's words tell them.
struct MessageBooks
{
    struct Message
    {
        int attempts = 0; ///< that reached the service
        QString outcome; ///< of the last delivery that returned; empty before
    };

    std::map<int, Message> messages; ///< that were enqueued

    /// Takes note of what the subject said.
    void note(const QStringList &words);

private:
    // What a delivery does is certain when it has returned.
    std::map<int, QString> m_underway;
};

} // namespace powercut

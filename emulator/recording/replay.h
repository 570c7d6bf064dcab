#pragma once

#include "emulator/http/message.h"
#include "emulator/recording/nearest.h"
#include "emulator/recording/readrecording.h"

#include <QHash>

namespace emulator {

/// Answers tills from a recording. Requests are matched by their keys (requestkey.h); where the
/// recording holds masked cards, cards are compared masked, and the till's own number is put into
/// the answer. Several answers to one key come in the order of recording, then the last one again
/// and again. One thread.
class Replay
{
public:
    /// With times: answers come as late as they were recorded.
    Replay(Recording recording, bool withTimes);

    /// Tells what it cannot match on standard error, and answers a SOAP fault then. Never throws
    /// but for memory.
    HttpReply answer(const HttpRequest &request);

    /// What was matched, what not, and what nobody asked for; on one line.
    QString summary() const;

private:
    /// What is answered to one key.
    struct Course
    {
        std::vector<std::size_t> exchanges; ///< of the recording, never empty
        std::size_t next = 0;
    };

    void take(std::size_t index);
    RequestKey keyOfMasked(const QByteArray &request) const;
    HttpReply next(Course &course, const QByteArray &request);
    HttpReply notMatched(const RequestKey &asked);
    QString neverAskedFor() const;

    const Recording m_recording;
    const bool m_withTimes;
    const bool m_comparesMasked;
    const MessageSchema m_schema;
    std::vector<RecordedRequest> m_requests;
    QHash<RequestKey, Course> m_courses;
    std::vector<bool> m_wasAskedFor; ///< by exchange
    qint64 m_matched = 0;
    qint64 m_notMatched = 0;
};

} // namespace emulator

#include "host/net/answercollector.h"

namespace {

// All heads of one exchange together: interim answers (1xx) may come in any number.
constexpr qint64 maxHeadBytes = 64 * 1024;

bool startsHead(QByteArrayView line)
{
    return line.startsWith("HTTP/");
}

bool endsHead(QByteArrayView line)
{
    return line == "\r\n" || line == "\n";
}

} // namespace

AnswerCollector::AnswerCollector(qint64 maxBodyBytes)
    : m_maxBodyBytes(maxBodyBytes)
{ }

bool AnswerCollector::takeHeadLine(QByteArrayView line)
{
    m_headBytes += line.size();
    m_tooLarge = m_tooLarge || m_headBytes > maxHeadBytes;
    if (startsHead(line))
        m_headComplete = false;
    else if (endsHead(line))
        m_headComplete = true;
    return !m_tooLarge;
}

bool AnswerCollector::takeBody(QByteArrayView bytes)
{
    m_tooLarge = m_tooLarge || m_body.size() + bytes.size() > m_maxBodyBytes;
    if (!m_tooLarge)
        m_body.append(bytes);
    return !m_tooLarge;
}

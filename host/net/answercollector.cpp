#include "host/net/answercollector.h"

#include <curl/curl.h>

#include <ctime>

namespace {

// All heads of one exchange together: interim answers (1xx) may come in any number.
constexpr qint64 maxHeadBytes = qint64{64} * 1024;

bool startsHead(QByteArrayView line)
{
    return line.startsWith("HTTP/");
}

bool endsHead(QByteArrayView line)
{
    return line == "\r\n" || line == "\n";
}

constexpr QByteArrayView dateField = "date:";

bool isDate(QByteArrayView line)
{
    return line.size() > dateField.size()
        && line.first(dateField.size()).compare(dateField, Qt::CaseInsensitive) == 0;
}

QDateTime dateIn(QByteArrayView line)
{
    const QByteArray text = line.sliced(dateField.size()).trimmed().toByteArray();
    const std::time_t time = curl_getdate(text.constData(), nullptr);
    return time < 0 ? QDateTime() : QDateTime::fromSecsSinceEpoch(time, Qt::UTC);
}

} // namespace

AnswerCollector::AnswerCollector(qint64 maxBodyBytes)
    : m_maxBodyBytes(maxBodyBytes)
{ }

bool AnswerCollector::takeHeadLine(QByteArrayView line)
{
    m_headBytes += line.size();
    m_tooLarge = m_tooLarge || m_headBytes > maxHeadBytes;
    if (startsHead(line)) {
        m_headComplete = false;
        m_date = {};
    } else if (endsHead(line)) {
        m_headComplete = true;
    } else if (isDate(line)) {
        m_date = dateIn(line);
    }
    return !m_tooLarge;
}

bool AnswerCollector::takeBody(QByteArrayView bytes)
{
    m_tooLarge = m_tooLarge || m_body.size() + bytes.size() > m_maxBodyBytes;
    if (!m_tooLarge)
        m_body.append(bytes);
    return !m_tooLarge;
}

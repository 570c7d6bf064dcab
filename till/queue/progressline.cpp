#include "till/queue/progressline.h"

#include "host/framework/tr.h"

#include <unistd.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr auto clearedLine = "\r\x1b[K";
constexpr int barWidth = 30;

void write(std::FILE *stream, const QString &text)
{
    static_cast<void>(std::fputs(clearedLine, stream));
    static_cast<void>(std::fputs(text.toUtf8().constData(), stream));
    static_cast<void>(std::fflush(stream));
}

} // namespace

ProgressLine::ProgressLine(std::FILE *stream, int total)
    : m_stream(stream)
    , m_isTerminal(isatty(fileno(stream)) != 0)
    , m_total(total)
{ }

ProgressLine::~ProgressLine()
{
    if (m_isTerminal)
        write(m_stream, {});
}

void ProgressLine::show(const DeliveryReport &soFar)
{
    if (m_isTerminal)
        write(m_stream, text(soFar, m_total));
}

QString ProgressLine::text(const DeliveryReport &soFar, int total)
{
    const int undelivered = soFar.refused + soFar.failed + soFar.parked;
    const int done = soFar.delivered + undelivered;
    // More than there were at first: a till has enqueued meanwhile.
    const int all = std::max({total, done, 1});
    const auto filled = static_cast<int>(qint64(barWidth) * done / all);
    const QString bar = QString(filled, u'#') + QString(barWidth - filled, u'.');
    return tr::Tr(u"queueProgress"_s, u"[%1] %2/%3, не доставлено %4"_s)
        .arg(bar)
        .arg(QString::number(done))
        .arg(QString::number(all))
        .arg(QString::number(undelivered))
        .ui();
}

} // namespace till

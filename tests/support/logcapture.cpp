#include "tests/support/logcapture.h"

#include <QUuid>

#include <log4cplus/appender.h>
#include <log4cplus/logger.h>
#include <log4cplus/spi/loggingevent.h>

namespace {

class ListAppender : public log4cplus::Appender
{
public:
    ~ListAppender() override { destructorImpl(); }
    void close() override { closed = true; }
    QStringList lines;

protected:
    void append(const log4cplus::spi::InternalLoggingEvent &event) override
    {
        const auto level = log4cplus::getLogLevelManager().toString(event.getLogLevel());
        lines.append(QString::fromStdString(level) + QLatin1Char(' ')
            + QString::fromStdString(event.getMessage()));
    }
};

log4cplus::Logger sinkOf(const QString &name)
{
    return log4cplus::Logger::getInstance(name.toStdString());
}

} // namespace

LogCapture::LogCapture(const QString &loggerName)
    : m_loggerName(loggerName)
    , m_appenderName(QUuid::createUuid().toString())
{
    log4cplus::SharedAppenderPtr appender(new ListAppender);
    appender->setName(m_appenderName.toStdString());
    sinkOf(m_loggerName).setLogLevel(log4cplus::ALL_LOG_LEVEL);
    sinkOf(m_loggerName).addAppender(appender);
}

LogCapture::~LogCapture()
{
    sinkOf(m_loggerName).removeAppender(m_appenderName.toStdString());
}

QStringList LogCapture::lines() const
{
    const auto appender = sinkOf(m_loggerName).getAppender(m_appenderName.toStdString());
    return static_cast<ListAppender &>(*appender).lines;
}

bool LogCapture::has(const QString &level, const QString &message) const
{
    return lines().contains(level + QLatin1Char(' ') + message);
}

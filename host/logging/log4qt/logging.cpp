#include "log4qt/logger.h"
#include "log4qt/logmanager.h"

#include "host/logging/oneline.h"

#include <log4cplus/initializer.h>
#include <log4cplus/logger.h>
#include <log4cplus/nullappender.h>

#include <map>
#include <mutex>

namespace Log4Qt {

namespace {

// log4cplus takes wide or narrow texts by how it was built; Debian's takes narrow ones.
log4cplus::tstring narrow(const QString &text)
{
    return text.toStdString();
}

log4cplus::Initializer *newInitializer()
{
    auto *const initializer = new log4cplus::Initializer;
    // Without any appender the library would complain on standard error.
    log4cplus::Logger::getRoot().addAppender(
        log4cplus::SharedAppenderPtr(new log4cplus::NullAppender));
    return initializer;
}

} // namespace

struct Logger::Private
{
    QString name;
    log4cplus::Logger sink;
};

Logger::Logger(const QString &name)
    : m_private(new Private{name, log4cplus::Logger::getInstance(narrow(name))})
{ }

Logger::~Logger() = default;

QString Logger::name() const
{
    return m_private->name;
}

void Logger::debug(const QString &message) const
{
    m_private->sink.log(log4cplus::DEBUG_LOG_LEVEL, narrow(logging::onOneLine(message)));
}

void Logger::info(const QString &message) const
{
    m_private->sink.log(log4cplus::INFO_LOG_LEVEL, narrow(logging::onOneLine(message)));
}

void Logger::warn(const QString &message) const
{
    m_private->sink.log(log4cplus::WARN_LOG_LEVEL, narrow(logging::onOneLine(message)));
}

void Logger::error(const QString &message) const
{
    m_private->sink.log(log4cplus::ERROR_LOG_LEVEL, narrow(logging::onOneLine(message)));
}

Logger *LogManager::logger(const QString &name)
{
    // Never released on purpose: loggers are used until the very end of the program.
    static auto *const initializer = newInitializer();
    static auto *const guard = new std::mutex;
    static auto *const loggers = new std::map<QString, std::unique_ptr<Logger>>;
    Q_UNUSED(initializer)
    const std::lock_guard<std::mutex> lock(*guard);
    auto &logger = (*loggers)[name];
    if (!logger)
        logger = std::make_unique<Logger>(name);
    return logger.get();
}

} // namespace Log4Qt

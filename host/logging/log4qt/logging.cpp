#include "log4qt/logger.h"
#include "log4qt/logmanager.h"

#include <log4cplus/initializer.h>
#include <log4cplus/logger.h>
#include <log4cplus/nullappender.h>

#include <map>
#include <mutex>

namespace Log4Qt {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int codeDigits = 4;
constexpr int hexadecimal = 16;

// log4cplus takes wide or narrow texts by how it was built; Debian's takes narrow ones.
log4cplus::tstring narrow(const QString &text)
{
    return text.toStdString();
}

bool isWrittenAsCode(QChar character)
{
    // Format characters are invisible, and some turn the reading order of what stands behind them.
    return (character.category() == QChar::Other_Control && character != u'\t')
        || character.category() == QChar::Other_Format || character == QChar::LineSeparator
        || character == QChar::ParagraphSeparator;
}

// One line per message: a text from outside could otherwise pass for lines of the log itself.
QString onOneLine(const QString &message)
{
    QString line;
    line.reserve(message.size());
    for (const QChar character : message) {
        if (character == u'\n')
            line.append(u"\\n"_s);
        else if (character == u'\r')
            line.append(u"\\r"_s);
        else if (isWrittenAsCode(character))
            line.append(
                u"\\u%1"_s.arg(uint{character.unicode()}, codeDigits, hexadecimal, QChar(u'0')));
        else
            line.append(character);
    }
    return line;
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
    m_private->sink.log(log4cplus::DEBUG_LOG_LEVEL, narrow(onOneLine(message)));
}

void Logger::info(const QString &message) const
{
    m_private->sink.log(log4cplus::INFO_LOG_LEVEL, narrow(onOneLine(message)));
}

void Logger::warn(const QString &message) const
{
    m_private->sink.log(log4cplus::WARN_LOG_LEVEL, narrow(onOneLine(message)));
}

void Logger::error(const QString &message) const
{
    m_private->sink.log(log4cplus::ERROR_LOG_LEVEL, narrow(onOneLine(message)));
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

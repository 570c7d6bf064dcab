#pragma once

#include "log4qt/appenderattachable.h"
#include "log4qt/level.h"
#include "log4qt/logerror.h"
#include "log4qt/logstream.h"

#include <QObject>
#include <QString>

namespace Log4Qt {

class LOG4QT_EXPORT Logger : public QObject, public AppenderAttachable
{
    Q_OBJECT

public:
    Logger() = delete;
    virtual ~Logger();

    bool additivity() const;
    Level level() const;
    QString name() const;
    virtual void setLevel(Level level);
    bool isDebugEnabled() const;

    void debug(const QString &message) const;
    void debug(const LogError &logError) const;
    LogStream debug() const;
    template <typename T, typename... Ts>
    void debug(const QString &message, T &&argument, Ts &&...arguments) const;

    void info(const QString &message) const;
    void info(const LogError &logError) const;
    LogStream info() const;
    template <typename T, typename... Ts>
    void info(const QString &message, T &&argument, Ts &&...arguments) const;

    void warn(const QString &message) const;
    void warn(const LogError &logError) const;
    LogStream warn() const;
    template <typename T, typename... Ts>
    void warn(const QString &message, T &&argument, Ts &&...arguments) const;

    void error(const QString &message) const;
    void error(const LogError &logError) const;
    LogStream error() const;
    template <typename T, typename... Ts>
    void error(const QString &message, T &&argument, Ts &&...arguments) const;

    static Logger *logger(const QString &name);
    static Logger *logger(const char *name);
    static Logger *rootLogger();

protected:
    Logger(LoggerRepository *repository, Level level, const QString &name, Logger *parent);
};

} // namespace Log4Qt

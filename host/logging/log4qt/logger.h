#pragma once

#include "host/export.h"

#include <QString>

#include <memory>

namespace Log4Qt {

/// A named logger. Made by `LogManager::logger` and living to the end of the program.
///
/// Every message is one line: line breaks and other control characters in it are written as "\n",
/// "\r" or "\u0007". May be used from any thread.
class POSHOST_EXPORT Logger
{
public:
    explicit Logger(const QString &name);
    ~Logger();
    Q_DISABLE_COPY_MOVE(Logger)

    [[nodiscard]] QString name() const;
    void debug(const QString &message) const;
    void info(const QString &message) const;
    void warn(const QString &message) const;
    void error(const QString &message) const;

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};

} // namespace Log4Qt

#pragma once

#include <QString>
#include <QStringList>

/// Collects what is logged under one logger name while it lives; lines are "LEVEL message".
class LogCapture
{
public:
    explicit LogCapture(const QString &loggerName);
    ~LogCapture();
    Q_DISABLE_COPY_MOVE(LogCapture)

    [[nodiscard]] QStringList lines() const;
    [[nodiscard]] bool has(const QString &level, const QString &message) const;

private:
    QString m_loggerName;
    QString m_appenderName;
};

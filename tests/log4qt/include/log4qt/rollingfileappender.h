#pragma once

#include "log4qt/fileappender.h"

namespace Log4Qt {

class LOG4QT_EXPORT RollingFileAppender : public FileAppender
{
    Q_OBJECT

public:
    RollingFileAppender(QObject *parent = nullptr);
    RollingFileAppender(
        const LayoutSharedPtr &layout, const QString &fileName, QObject *parent = nullptr);
    RollingFileAppender(const LayoutSharedPtr &layout, const QString &fileName, bool append,
        QObject *parent = nullptr);

    int maxBackupIndex() const;
    qint64 maximumFileSize() const;
    void setMaxBackupIndex(int maxBackupIndex);
    void setMaximumFileSize(qint64 maximumFileSize);

protected:
    void append(const LoggingEvent &event) override;
};

} // namespace Log4Qt

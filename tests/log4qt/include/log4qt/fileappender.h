#pragma once

#include "log4qt/writerappender.h"

namespace Log4Qt {

class LOG4QT_EXPORT FileAppender : public WriterAppender
{
    Q_OBJECT

public:
    FileAppender(QObject *parent = nullptr);
    ~FileAppender() override;

    bool appendFile() const;
    QString file() const;
    void setAppendFile(bool append);
    void setFile(const QString &fileName);
    void activateOptions() override;
    void close() override;
};

} // namespace Log4Qt

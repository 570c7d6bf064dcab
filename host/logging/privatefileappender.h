#pragma once

#include <QString>

#include <log4cplus/fileappender.h>

namespace logging {

/// A rolling log file that nobody but its owner can read. The stream that log4cplus opens takes the
/// process's mask, so each file is made before it is opened.
class PrivateFileAppender : public log4cplus::RollingFileAppender
{
public:
    /// @param path of a file that `makePrivateFile` was given.
    explicit PrivateFileAppender(const QString &path);
    ~PrivateFileAppender() override;

protected:
    void open(std::ios_base::openmode mode) override;
};

} // namespace logging

#include "host/logging/logsetup.h"

#include "host/logging/privatefileappender.h"
#include "host/storage/atomicfile.h"
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFileInfo>

#include <log4cplus/configurator.h>
#include <log4cplus/layout.h>
#include <log4cplus/nullappender.h>

#include <iostream>
#include <sstream>
#include <stdexcept>

namespace logging {

using namespace Qt::Literals::StringLiterals;

const QString fileName = u"korvel.log"_s;

namespace {

constexpr auto linePattern = "%D{%Y-%m-%d %H:%M:%S,%q} %-5p %c - %m%n";

[[noreturn]] void fail(const QString &text)
{
    throw std::runtime_error(text.toStdString());
}

// log4cplus tells its troubles to standard error only. To be used before other threads write.
class StandardErrorCapture
{
public:
    StandardErrorCapture()
        : m_former(std::cerr.rdbuf(m_caught.rdbuf()))
    { }
    ~StandardErrorCapture() { std::cerr.rdbuf(m_former); }
    Q_DISABLE_COPY_MOVE(StandardErrorCapture)

    [[nodiscard]] QString text() const { return QString::fromStdString(m_caught.str()).trimmed(); }

private:
    std::ostringstream m_caught;
    std::streambuf *m_former;
};

void writeNowhere()
{
    // Makes the library ready, whose loggers these are.
    Log4Qt::LogManager::logger(fileName);
    log4cplus::Logger root = log4cplus::Logger::getRoot();
    root.removeAllAppenders();
    root.addAppender(log4cplus::SharedAppenderPtr(new log4cplus::NullAppender));
}

void setUpByProperties(const QString &propertiesFile)
{
    if (!QFileInfo(propertiesFile).isFile() || !QFileInfo(propertiesFile).isReadable())
        fail(u"%1: the logging properties cannot be read; check the path and its permissions"_s.arg(
            propertiesFile));
    const StandardErrorCapture capture;
    log4cplus::PropertyConfigurator::doConfigure(QFile::encodeName(propertiesFile).toStdString());
    const QString troubles = capture.text();
    if (troubles.isEmpty())
        return;
    writeNowhere();
    fail(u"%1: the logging properties cannot be used; correct them: %2"_s.arg(
        propertiesFile, troubles));
}

void setUpInFolder(const QString &folder)
{
    const QString path = QDir(folder).filePath(fileName);
    atomicfile::makePrivateFolder(folder);
    if (!PrivateFileAppender::prepare(path))
        fail(u"%1: the log cannot be written; check that the folder can be"_s.arg(path));
    log4cplus::SharedAppenderPtr appender(new PrivateFileAppender(path));
    appender->setLayout(std::make_unique<log4cplus::PatternLayout>(linePattern));
    log4cplus::Logger::getRoot().addAppender(appender);
}

} // namespace

void setUp(const QString &folder, const QString &propertiesFile)
{
    writeNowhere();
    if (propertiesFile.isEmpty())
        setUpInFolder(folder);
    else
        setUpByProperties(propertiesFile);
}

} // namespace logging

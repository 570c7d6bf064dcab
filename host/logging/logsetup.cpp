#include "host/logging/logsetup.h"

#include "host/logging/logtroubles.h"
#include "host/logging/privatefile.h"
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

namespace logging {

using namespace Qt::Literals::StringLiterals;

const QString fileName = u"korvel.log"_s;

namespace {

constexpr auto linePattern = "%D{%Y-%m-%d %H:%M:%S,%q} %-5p %c - %m%n";

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
        throwPropertiesUnreadable(propertiesFile);
    const StandardErrorCapture capture;
    log4cplus::PropertyConfigurator::doConfigure(QFile::encodeName(propertiesFile).toStdString());
    const QString troubles = capture.text();
    if (troubles.isEmpty())
        return;
    writeNowhere();
    throwPropertiesUnusable(propertiesFile, troubles);
}

void setUpInFolder(const QString &folder)
{
    const QString path = QDir(folder).filePath(fileName);
    atomicfile::makePrivateFolder(folder);
    if (!makePrivateFile(path))
        throwUnwritable(path);
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

#include "host/logging/logsetup.h"

#include "host/logging/library/onelinelayout.h"
#include "host/logging/library/privatefileappender.h"
#include "host/logging/logtroubles.h"
#include "host/logging/privatefile.h"
#include "host/storage/atomicfile.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>
#include <log4qt/propertyconfigurator.h>

#include <QDir>
#include <QFileInfo>

namespace logging {

using namespace Qt::Literals::StringLiterals;

const QString fileName = u"korvel.log"_s;

namespace {

const QString linePattern = u"%d{yyyy-MM-dd HH:mm:ss,zzz} %-5p %c - %m%n"_s;

void writeNowhere()
{
    Log4Qt::LogManager::rootLogger()->removeAllAppenders();
}

void setUpByProperties(const QString &propertiesFile)
{
    if (!QFileInfo(propertiesFile).isFile() || !QFileInfo(propertiesFile).isReadable())
        throwPropertiesUnreadable(propertiesFile);
    if (Log4Qt::PropertyConfigurator::configure(propertiesFile))
        return;
    writeNowhere();
    // What exactly is wrong the library tells to standard error.
    throwPropertiesUnusable(propertiesFile, u"Log4Qt::PropertyConfigurator"_s);
}

void setUpInFolder(const QString &folder)
{
    const QString path = QDir(folder).filePath(fileName);
    atomicfile::makePrivateFolder(folder);
    if (!makePrivateFile(path))
        throwUnwritable(path);
    const Log4Qt::LayoutSharedPtr layout(new OneLineLayout(linePattern));
    layout->activateOptions();
    auto *const appender = new PrivateFileAppender(layout, path);
    const Log4Qt::AppenderSharedPtr owner(appender);
    appender->activateOptions();
    Log4Qt::LogManager::rootLogger()->addAppender(owner);
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

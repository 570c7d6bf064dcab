#include "till/window/demo/demo.h"

#include "host/framework/spokenerror.h"
#include "till/window/texts.h"

#include <QDir>
#include <QFile>

// Resources of a static library are registered by hand, from outside of any namespace.
static void registerResources()
{
    Q_INIT_RESOURCE(till_demo);
}

using namespace Qt::StringLiterals;

namespace till {

namespace {

constexpr auto ownFile = QFile::ReadOwner | QFile::WriteOwner;

void write(const QString &fileName, const QByteArray &contents)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        throw SpokenError(texts::demoFileNotWritten.arg(fileName).arg(file.errorString()));
    file.setPermissions(ownFile);
}

QByteArray sample(const QString &name)
{
    QFile file(u":/korvel/demo/"_s + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString programOrComplain()
{
    QString program = DemoService::findProgram();
    if (program.isEmpty())
        throw SpokenError(texts::demoServiceMissing);
    return program;
}

} // namespace

Demo::Demo(const RunOptions &given)
    : m_folder(QDir::tempPath() + u"/korvel-demo-XXXXXX"_s)
    , m_service(programOrComplain())
    , m_options(writeDemoFiles(m_folder.path(), m_service.url(), given))
{ }

RunOptions writeDemoFiles(const QString &folder, const QUrl &service, const RunOptions &given)
{
    registerResources();
    const QString url = service.toString();
    QDir().mkpath(folder + u"/till.ini.d"_s);
    write(folder + u"/till.ini"_s, sample(u"till.ini"_s));
    write(folder + u"/catalogue.json"_s, sample(u"catalogue.json"_s));
    write(folder + u"/till.ini.d/demo.ini"_s,
        u"[KorvelLoyaltyOnline]\nurl=%1\n[Till]\nserviceApi=%1api\n"_s.arg(url).toUtf8());
    RunOptions options = given;
    options.configFile = folder + u"/till.ini"_s;
    if (options.stateFolder.isEmpty())
        options.stateFolder = folder + u"/state"_s;
    return options;
}

} // namespace till

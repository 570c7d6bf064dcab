#include "tests/till/program/programfixture.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QByteArray catalogue = R"({"articles": [
    {"code": "1001", "name": "Хлеб", "price": 45.9}, {"code": "1002", "name": "Молоко", "price": 100}],
    "scan": {"cardPrefixes": ["29"]}, "till": {"firstCheque": 17}})";

} // namespace

ProgramFixture::ProgramFixture()
{
    givenFile(u"catalogue.json"_s, catalogue);
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\n");
}

QString ProgramFixture::givenFile(const QString &name, const QByteArray &contents) const
{
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contents);
    return file.fileName();
}

QString ProgramFixture::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString ProgramFixture::plugin(const QString &name)
{
    return QStringLiteral(TILL_PLUGINS "/") + name + u".so";
}

QStringList ProgramFixture::usualOptions() const
{
    return {u"run"_s, u"--plugin"_s, plugin(u"sellingplugin"_s), u"--state"_s, path(u"state"_s)};
}

void ProgramFixture::prepare(QProcess &process) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_folder.path());
    // Whatever this machine speaks.
    environment.insert(u"LC_ALL"_s, m_locale);
    environment.remove(u"LANGUAGE"_s);
    // As on a desktop, but without a screen.
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder.path());
    process.setProgram(QStringLiteral(TILL_PROGRAM));
}

void ProgramFixture::whenStarted(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    prepare(process);
    process.setArguments(arguments);
    process.start();
    process.write(input);
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished());
    ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
    status = process.exitCode();
    output = process.readAllStandardOutput();
    errors = process.readAllStandardError();
}

void ProgramFixture::whenScriptRuns(const QByteArray &script)
{
    whenStarted(usualOptions() << u"--transcript"_s << u"-"_s << givenFile(u"sale.till"_s, script));
}

std::unique_ptr<QProcess> ProgramFixture::givenRunningTill() const
{
    auto process = std::make_unique<QProcess>();
    prepare(*process);
    process->setArguments(usualOptions() << u"--transcript"_s << u"-"_s);
    process->start();
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

nlohmann::json ProgramFixture::whenTold(QProcess &till, const QByteArray &command)
{
    till.write(command + '\n');
    while (!till.canReadLine())
        if (!till.waitForReadyRead()) {
            ADD_FAILURE() << till.readAllStandardError().toStdString();
            return {};
        }
    return nlohmann::json::parse(till.readLine().toStdString());
}

int ProgramFixture::whenInputEnds(QProcess &till)
{
    till.closeWriteChannel();
    EXPECT_TRUE(till.waitForFinished());
    return till.exitCode();
}

void ProgramFixture::thenFails(int wanted, const QString &beginning) const
{
    const QString text = QString::fromUtf8(errors);
    EXPECT_EQ(status, wanted) << qPrintable(text);
    EXPECT_TRUE(text.startsWith(beginning)) << qPrintable(text);
    EXPECT_EQ(text.count(u'\n'), 1) << qPrintable(text);
    EXPECT_TRUE(text.contains(u"; ")) << "no remedy in " << qPrintable(text);
}

QList<nlohmann::json> ProgramFixture::transcript() const
{
    QList<nlohmann::json> objects;
    for (const QByteArray &line : output.split('\n'))
        if (!line.isEmpty())
            objects.append(nlohmann::json::parse(line.toStdString()));
    return objects;
}

// The program as it is started, used by its keyboard: a sale, a demonstration, a restart.

#include "tests/support/printers.h"
#include "tests/till/window/keyboardpipe.h"
#include "till/window/demo/demo.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestWait = 30000; // milliseconds
constexpr int betweenTries = 1000; // milliseconds

bool isListening(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int connection = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // NOLINTNEXTLINE: the interface of sockets
    const auto *any = reinterpret_cast<const sockaddr *>(&address);
    const bool isThere = connect(connection, any, sizeof address) == 0;
    close(connection);
    return isThere;
}

class WindowProgramTest : public testing::Test
{
public:
    ~WindowProgramTest() override { whenKilled(); }

    void givenWindow(const QStringList &options = {})
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char *folder : {"HOME", "TMPDIR", "XDG_RUNTIME_DIR"})
            environment.insert(QString::fromLatin1(folder), m_folder.path());
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"QT_QPA_GENERIC_PLUGINS"_s, keyboard.plugin());
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        m_process = std::make_unique<QProcess>();
        m_process->setProcessEnvironment(environment);
        m_process->setWorkingDirectory(m_folder.path());
        m_process->start(QStringLiteral(TILL_PROGRAM),
            QStringList{u"window"_s, u"--plugin"_s, QStringLiteral(LOYALTY_PLUGIN)} + options);
        ASSERT_TRUE(m_process->waitForStarted());
    }
    /// A window that sells with that service.
    void givenWindowWith(const till::DemoService &service)
    {
        const auto options = till::writeDemoFiles(m_folder.path(), service.url(), {});
        givenWindow({u"--config"_s, options.configFile, u"--state"_s, options.stateFolder});
    }
    void whenKilled()
    {
        if (!m_process)
            return;
        m_process->kill();
        m_process->waitForFinished();
        m_process.reset();
    }
    /// Presses the key until the till has done what is awaited: what is pressed before the window
    /// is there goes nowhere.
    bool whenPressedUntil(int key, const std::function<bool()> &isDone) const
    {
        for (int waited = 0; waited < longestWait; waited += betweenTries) {
            keyboard.press(key);
            if (QTest::qWaitFor(isDone, betweenTries))
                return true;
        }
        return false;
    }
    void whenScanned(const QString &code) const
    {
        keyboard.type(code);
        keyboard.press(KEY_ENTER);
    }
    /// Everything in the files of a folder below that of this test.
    QString contents(
        const QString &folderPattern, const QString &below, const QString &name = u"*"_s) const
    {
        QString text;
        const QStringList folders
            = QDir(m_folder.path()).entryList({folderPattern}, QDir::Dirs | QDir::NoDotAndDotDot);
        for (const QString &folder : folders) {
            const QDir files(m_folder.filePath(folder) + u'/' + below);
            const QStringList names = files.entryList({name}, QDir::Files);
            for (const QString &fileName : names) {
                QFile file(files.filePath(fileName));
                if (file.open(QIODevice::ReadOnly))
                    text += QString::fromUtf8(file.readAll());
            }
        }
        return text;
    }
    bool awaits(const std::function<bool()> &isDone) const
    {
        return QTest::qWaitFor(isDone, longestWait);
    }
    QProcess &process() const { return *m_process; }

    KeyboardPipe keyboard;

private:
    QTemporaryDir m_folder;
    std::unique_ptr<QProcess> m_process;
};

TEST_F(WindowProgramTest, ItSellsAndIsKilledAndGoesOnWithTheOpenCheque)
{
    const till::DemoService service(QStringLiteral(SERVICE_PROGRAM));
    givenWindowWith(service);
    const auto document = [this] { return contents(u"state"_s, {}, u"document.json"_s); };
    const auto receipts = [this] { return contents(u"state"_s, u"receipts"_s); };
    ASSERT_TRUE(whenPressedUntil(KEY_F1, [&] { return !document().isEmpty(); }));
    whenScanned(u"1001"_s);
    whenScanned(u"2900000000017"_s);
    ASSERT_TRUE(awaits([&] { return document().contains(u"2900000000017"); }));
    whenKilled();
    givenWindowWith(service);
    // The payment comes up over the cheque that was left open.
    ASSERT_TRUE(whenPressedUntil(KEY_F8, [&] { return receipts().contains(u"Хлеб"); }));
    EXPECT_TRUE(receipts().contains(u"2900000000017")) << qPrintable(receipts());
    EXPECT_TRUE(receipts().contains(u"Наличными"));
}

TEST_F(WindowProgramTest, WithoutAConfigurationItOffersADemonstrationThatEndsWithIt)
{
    givenWindow();
    const QString folder = u"korvel-demo-*"_s;
    const auto settings = [&] { return contents(folder, u"till.ini.d"_s); };
    ASSERT_TRUE(whenPressedUntil(KEY_ENTER, [&] { return settings().contains(u"serviceApi="); }));
    ASSERT_TRUE(whenPressedUntil(
        KEY_F1, [&] { return !contents(folder, u"state"_s, u"document.json"_s).isEmpty(); }));
    whenScanned(u"4600000010015"_s);
    EXPECT_TRUE(whenPressedUntil(
        KEY_F8, [&] { return contents(folder, u"state/receipts"_s).contains(u"Хлеб"); }));
    const QUrl service(settings().section(u"url="_s, 1).section(u'\n', 0, 0));
    const auto listens = [&service] { return isListening(service.port()); };
    EXPECT_TRUE(listens());
    whenKilled();
    EXPECT_TRUE(awaits([&] { return !listens(); }));
}

TEST_F(WindowProgramTest, ADemonstrationThatIsDeclinedEndsInTheUsualError)
{
    givenWindow();
    EXPECT_TRUE(
        whenPressedUntil(KEY_ESC, [this] { return process().state() == QProcess::NotRunning; }));
    EXPECT_EQ(process().exitCode(), 3);
    const QString error = QString::fromUtf8(process().readAllStandardError());
    EXPECT_TRUE(error.contains(u"korvel-till-window: no configuration; name one with --config"))
        << qPrintable(error);
}

} // namespace

// What a person at a terminal sees of a delivery.

#include "tests/support/scriptedserver.h"
#include "tests/till/queue/queueprogramfixture.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

class TerminalTest : public QueueProgramFixture
{
public:
    void givenMessageFor(const QString &id)
    {
        QueueMessage message = makeMessage(id);
        message.url = service.url().toString();
        givenMessage(message);
    }
    /// Runs `korvel-till queue` on a terminal of its own.
    void whenAskedOnATerminal(const QStringList &words)
    {
        QList<QByteArray> texts{TILL_PROGRAM, "queue"};
        for (const QString &word : words + QStringList{u"--state"_s, stateFolder()})
            texts.append(word.toUtf8());
        QList<char *> arguments;
        for (QByteArray &text : texts)
            arguments.append(text.data());
        arguments.append(nullptr);
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            execv(arguments[0], arguments.data());
            _exit(127);
        }
        readAll(terminal);
        int ending = 0;
        waitpid(child, &ending, 0);
        status = WEXITSTATUS(ending);
    }

    ScriptedServer service;

private:
    // Reading fails once the program has closed its side.
    void readAll(int terminal)
    {
        std::array<char, 4096> bytes;
        for (ssize_t count = 0; (count = ::read(terminal, bytes.data(), bytes.size())) > 0;)
            output.append(bytes.data(), count);
        ::close(terminal);
        output.replace("\r\n", "\n");
    }
};

const QByteArray cleared = "\r\x1b[K";

TEST_F(TerminalTest, DeliveryShowsHowFarItHasComeOnOneLine)
{
    service.answer("<E><ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse></E>");
    service.answer("<E><ChequeResponse><ReturnCode>80241</ReturnCode></ChequeResponse></E>");
    givenMessageFor(u"aa"_s);
    givenMessageFor(u"bb"_s);
    whenAskedOnATerminal({u"deliver"_s});
    EXPECT_EQ(status, 1);
    const QByteArray half = QByteArray(15, '#') + QByteArray(15, '.');
    const QByteArray whole(30, '#');
    const QByteArray shown = cleared + "[" + half + "] 1/2, not delivered 0" + cleared + "[" + whole
        + "] 2/2, not delivered 1" + cleared
        + "delivered 1, refused 1, failed 0, parked 0; waiting 0\n";
    EXPECT_EQ(output.left(shown.size()), shown) << output.toStdString();
}

TEST_F(TerminalTest, JsonIsJsonOnATerminalToo)
{
    service.answer("<E><ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse></E>");
    givenMessageFor(u"aa"_s);
    whenAskedOnATerminal({u"deliver"_s, u"--json"_s});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(nlohmann::json::parse(output.toStdString())["delivered"], 1);
}

TEST_F(TerminalTest, NothingToSendShowsNoLine)
{
    whenAskedOnATerminal({u"deliver"_s});
    EXPECT_EQ(
        output, QByteArray(cleared + "delivered 0, refused 0, failed 0, parked 0; waiting 0\n"));
}

} // namespace

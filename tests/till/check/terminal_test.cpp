// What a person at a terminal sees of a check.

#include "tests/support/scriptedserver.h"
#include "tests/till/program/programfixture.h"

#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {

class CheckTerminalTest : public ProgramFixture
{
public:
    /// Runs `korvel-till check` on a terminal of its own, in the folder of this test.
    void whenCheckedOnATerminal()
    {
        const QByteArray folder = path(u"."_s).toUtf8();
        const QByteArray module = plugin(u"sellingplugin"_s).toUtf8();
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            setenv("LC_ALL", "C.UTF-8", 1);
            setenv("HOME", folder.constData(), 1);
            unsetenv("NO_COLOR");
            if (chdir(folder.constData()) == 0)
                execl(TILL_PROGRAM, TILL_PROGRAM, "check", "--plugin", module.constData(), nullptr);
            _exit(127);
        }
        readAll(terminal);
        int ending = 0;
        waitpid(child, &ending, 0);
        status = WEXITSTATUS(ending);
    }

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

TEST_F(CheckTerminalTest, IsColouredAndSaysWhatIsWaitedFor)
{
    ScriptedServer service;
    service.answer("", 401);
    givenFile(
        u"till.ini"_s, "[KorvelLoyaltyOnline]\nurl=" + service.url().toEncoded() + "\ntimeot=1\n");
    whenCheckedOnATerminal();

    EXPECT_EQ(status, 2) << output.toStdString();
    EXPECT_TRUE(output.startsWith("waiting for the service 127.0.0.1…\r\033[K"))
        << output.toStdString();
    EXPECT_TRUE(output.contains("\033[33mwarning       \033[0m till.ini:3 "));
    EXPECT_TRUE(output.contains("\033[31merror         \033[0m KorvelLoyaltyOnline:url: "));
}

} // namespace

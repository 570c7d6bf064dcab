// The prompt, on a terminal.

#include "tests/till/program/programfixture.h"

#include <QFile>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QByteArray endOfInput = "\x04";

class PromptTest : public ProgramFixture
{
public:
    ~PromptTest() override
    {
        ::close(m_terminal);
        if (m_child > 0) {
            kill(m_child, SIGKILL);
            waitpid(m_child, nullptr, 0);
        }
    }

    void givenPrompt()
    {
        QList<QByteArray> words{TILL_PROGRAM};
        for (const QString &option : usualOptions())
            words.append(option.toUtf8());
        words.append("--config");
        words.append(path(u"till.ini"_s).toUtf8());
        QList<char *> arguments;
        for (QByteArray &word : words)
            arguments.append(word.data());
        arguments.append(nullptr);
        m_child = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_child == 0) {
            setenv("TERM", "xterm", 1);
            execv(arguments[0], arguments.data());
            _exit(127);
        }
    }
    /// Types at the prompt.
    void whenTyped(const QByteArray &keys)
    {
        thenShows("till> ");
        waitForEditor();
        ASSERT_EQ(
            ::write(m_terminal, keys.constData(), static_cast<size_t>(keys.size())), keys.size());
    }
    /// Waits until the terminal has shown that, behind what was waited for before.
    void thenShows(const QByteArray &text)
    {
        while (!m_shown.contains(text)) {
            if (!readMore()) {
                ADD_FAILURE() << text.toStdString() << " not in " << m_shown.toStdString();
                return;
            }
        }
        m_shown.remove(0, m_shown.indexOf(text) + text.size());
    }
    int whenInputEnds()
    {
        whenTyped(endOfInput);
        while (readMore()) { }
        if (!m_hungUp)
            return -1;
        int state = 0;
        waitpid(std::exchange(m_child, -1), &state, 0);
        return WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    }

private:
    /// The editor takes the terminal over behind its prompt. Until then the terminal would edit
    /// the line itself, and swallow the end of the input.
    void waitForEditor() const
    {
        termios mode{};
        do {
            std::this_thread::yield();
        } while (tcgetattr(m_terminal, &mode) == 0 && (mode.c_lflag & ICANON) != 0);
    }
    bool readMore()
    {
        constexpr int patience = 20000;
        pollfd waiting{m_terminal, POLLIN, 0};
        char bytes[4096];
        if (poll(&waiting, 1, patience) <= 0)
            return false;
        const auto length = ::read(m_terminal, bytes, sizeof bytes);
        m_hungUp = length <= 0;
        if (m_hungUp)
            return false;
        m_shown.append(bytes, length);
        return true;
    }

    int m_terminal = -1;
    pid_t m_child = -1;
    bool m_hungUp = false; ///< the program has let go of the terminal
    QByteArray m_shown;
};

TEST_F(PromptTest, CommandsAreExecutedAsTheyAreTyped)
{
    givenPrompt();
    whenTyped("add 1002\n");
    thenShows("1. Молоко: 1 x 100.00 = 100.00");
    whenTyped("close\n");
    thenShows("is closed");
    EXPECT_EQ(whenInputEnds(), 0);
}

TEST_F(PromptTest, AnErrorIsToldAndThePromptGoesOn)
{
    givenPrompt();
    whenTyped("close\n");
    thenShows("no document is open; open a sale or a return");
    whenTyped("add 1002\n");
    thenShows("Молоко");
    EXPECT_EQ(whenInputEnds(), 0);
}

TEST_F(PromptTest, CommandsAndArticlesAreCompleted)
{
    givenPrompt();
    whenTyped("ad\t1002\n");
    thenShows("1. Молоко");
    whenTyped("add 1001\t\n");
    thenShows("2. Хлеб");
    EXPECT_EQ(whenInputEnds(), 0);
}

TEST_F(PromptTest, TheHistoryOutlivesTheTill)
{
    givenPrompt();
    whenTyped("add 1002\n");
    thenShows("Молоко");
    EXPECT_EQ(whenInputEnds(), 0);
    QFile history(path(u"state/history"_s));
    ASSERT_TRUE(history.open(QIODevice::ReadOnly));
    EXPECT_TRUE(history.readAll().contains("add"));
    EXPECT_EQ(history.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

TEST_F(PromptTest, SaysThatLoyaltyIsOff)
{
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\nloyalty=false\n");
    givenPrompt();
    thenShows("till without loyalty> ");
}

} // namespace

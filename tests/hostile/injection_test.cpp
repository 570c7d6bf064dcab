// Characters that are commandCharacters, in texts from outside, against everything that such texts
// end in.

#include "host/net/restclient.h"
#include "host/printing/receipt.h"
#include "host/printing/textprinter.h"
#include "host/storage/journal.h"
#include "host/storage/statefolder.h"
#include "tests/support/logcapture.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/support/scriptfixture.h"
#include "till/console/narrator.h"
#include "till/console/promptcashier.h"
#include "till/queue/messageobject.h"
#include "till/queue/messagetable.h"
#include "till/queue/messagetext.h"
#include "till/queue/output.h"
#include "till/script/scriptrunner.h"
#include "till/transcript/transcriptfile.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <functional>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

QList<QChar> between(char16_t first, char16_t last)
{
    QList<QChar> characters;
    for (char16_t character = first; character <= last; ++character)
        characters.append(character);
    return characters;
}

/// What works terminals and printers, ends lines, or turns the reading order.
const QList<QChar> commandCharacters = between(0x00, 0x1F) + between(0x7F, 0x9F)
    + between(u'\u2028', u'\u202E') + between(u'\u2066', u'\u2069');

const QString harmlessText = u"before after"_s;

QString hostileText(QChar command)
{
    return u"before"_s + command + u"after"_s;
}

/// What came out of a sink, judged.
bool holdsCommand(const QByteArray &output)
{
    const QString text = QString::fromUtf8(output);
    return std::any_of(text.cbegin(), text.cend(), [](QChar character) {
        return character != u'\n' && character != u'\t' && commandCharacters.contains(character);
    });
}

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QueueMessage failedMessage(const QString &error)
{
    QueueMessage message;
    message.id = u"0190c0de-0000-7000-8000-000000000001"_s;
    message.state = MessageState::Refused;
    message.lastError = error;
    return message;
}

} // namespace

class InjectionTest : public ScriptFixture
{
protected:
    enum class Lines
    {
        Fixed, ///< the text must not make another line
        Free
    };
    using Sink = std::function<QByteArray(const QString &)>;

    static void thenNothingComesThrough(Lines lines, const Sink &sink)
    {
        const auto expected = sink(harmlessText).count('\n');
        for (const QChar command : commandCharacters) {
            SCOPED_TRACE(QString::number(command.unicode(), 16).toStdString());
            const QByteArray output = sink(hostileText(command));
            EXPECT_TRUE(output.contains("before") && output.contains("after"));
            EXPECT_FALSE(holdsCommand(output)) << output.toPercentEncoding().toStdString();
            if (lines == Lines::Fixed) {
                EXPECT_EQ(output.count('\n'), expected) << output.toStdString();
            }
        }
    }

    static QByteArray journalLine(const QString &text)
    {
        QFile::remove(Singleton<StateFolder>::instance()->journal());
        Journal().append(u"event"_s, {{u"text"_s, text}, {text, 1}});
        return contentsOf(Singleton<StateFolder>::instance()->journal());
    }

    static QByteArray printed(const std::function<void()> &print)
    {
        const QString folder = Singleton<StateFolder>::instance()->receipts();
        QDir(folder).removeRecursively();
        print();
        const QStringList names = QDir(folder).entryList(QDir::Files);
        return names.isEmpty() ? QByteArray() : contentsOf(folder + u'/' + names.constFirst());
    }

    QByteArray narrated(const std::function<void()> &act)
    {
        std::ostringstream out;
        till::Narrator narrator(out, till::Paint(false));
        const auto sizeBefore = executed.size();
        act();
        while (executed.size() > sizeBefore)
            narrator.tell(executed.takeFirst());
        return QByteArray::fromStdString(out.str());
    }

    QList<till::ExecutedCommand> executed;
};

TEST_F(InjectionTest, TheJudgeSeesEachOfThem)
{
    for (const QChar command : commandCharacters)
        EXPECT_EQ(
            holdsCommand(hostileText(command).toUtf8()), command != u'\n' && command != u'\t');
    EXPECT_FALSE(holdsCommand(harmlessText.toUtf8()));
}

TEST_F(InjectionTest, AHeaderOfARequest)
{
    ScriptedServer server;
    server.answer("ok");
    const auto sent = [&server](const QString &text) {
        RestClient client;
        client.post(server.url(), "<a/>", {{u"X-Value"_s, text}, {u"X-"_s + text, u"value"_s}});
        return server.requests().constLast();
    };
    const auto namesExpected = sent(u"before"_s).headers.size();
    for (const QChar command : commandCharacters) {
        SCOPED_TRACE(QString::number(command.unicode(), 16).toStdString());
        const auto request = sent(hostileText(command));
        EXPECT_EQ(request.headers.size(), namesExpected);
        EXPECT_EQ(request.headers.value("x-beforeafter"), "value");
        EXPECT_EQ(request.body, "<a/>");
        // What is no control character may pass: to a header's reader it is no command.
        if (command.category() == QChar::Other_Control) {
            EXPECT_EQ(request.headers.value("x-value"), "beforeafter");
        }
    }
}

TEST_F(InjectionTest, ALineOfTheLog)
{
    thenNothingComesThrough(Lines::Fixed, [](const QString &text) {
        const LogCapture log(u"injection"_s);
        Log4Qt::LogManager::logger(u"injection"_s)->error(text);
        return log.lines().join(u'\n').toUtf8();
    });
}

TEST_F(InjectionTest, ALineOfTheJournal)
{
    thenNothingComesThrough(Lines::Fixed, &InjectionTest::journalLine);
}

TEST_F(InjectionTest, ALineOfATranscript)
{
    thenNothingComesThrough(Lines::Fixed, [this](const QString &text) {
        const QString fileName = stateFolder() + u"/transcript"_s;
        till::TranscriptFile(fileName).write(till::Json{{"text", text.toStdString()}});
        return contentsOf(fileName);
    });
}

TEST_F(InjectionTest, AMessageOfTheQueueAsJson)
{
    thenNothingComesThrough(Lines::Fixed, [](const QString &text) {
        return till::jsonText(till::listedMessage(failedMessage(text))).toUtf8();
    });
}

TEST_F(InjectionTest, AMessageOfTheQueueForPeople)
{
    thenNothingComesThrough(Lines::Fixed,
        [](const QString &text) { return till::messageText(failedMessage(text)).toUtf8(); });
}

TEST_F(InjectionTest, AnAnswerThatAMessageKeeps)
{
    thenNothingComesThrough(Lines::Free, [](const QString &text) {
        QueueMessage message = failedMessage(u"refused"_s);
        message.answer = text.toUtf8();
        return till::messageText(message).toUtf8();
    });
}

TEST_F(InjectionTest, TheTableOfTheQueue)
{
    thenNothingComesThrough(Lines::Fixed, [this](const QString &text) {
        const QString fileName = stateFolder() + u"/table"_s;
        std::FILE *file = std::fopen(fileName.toUtf8().constData(), "w");
        till::MessageTable(file, till::MessageTable::Width::Whole).write({failedMessage(text)});
        std::fclose(file);
        return contentsOf(fileName);
    });
}

TEST_F(InjectionTest, ARefusalThatIsNarrated)
{
    interpreter.addObserver([this](const till::ExecutedCommand &command, const till::Json &) {
        executed.append(command);
    });
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    thenNothingComesThrough(Lines::Free, [this](const QString &text) {
        loyalty->refuseWith(u"id"_s, text, false);
        return narrated([this] { whenExecuted(u"card 29"_s); });
    });
}

TEST_F(InjectionTest, APaperThatIsNarrated)
{
    interpreter.addObserver([this](const till::ExecutedCommand &command, const till::Json &) {
        executed.append(command);
    });
    thenNothingComesThrough(Lines::Free, [this](const QString &text) {
        till::ExecutedCommand command;
        command.text = text;
        command.recording.screen = {text};
        return narrated([&] { executed.append(command); });
    });
}

TEST_F(InjectionTest, ARemarkOfAScript)
{
    thenNothingComesThrough(Lines::Fixed, [](const QString &text) {
        std::ostringstream out;
        till::Narrator(out, till::Paint(false)).tellRemark(text);
        return QByteArray::fromStdString(out.str());
    });
}

TEST_F(InjectionTest, WhatACashierReadsAndIsAskedAtThePrompt)
{
    thenNothingComesThrough(Lines::Free, [](const QString &text) {
        std::ostringstream out;
        till::PromptCashier cashier(out, [&out](const QString &prompt) -> std::optional<QString> {
            out << prompt.toStdString();
            return QString();
        });
        const tr::Tr message(u"id"_s, text);
        cashier.read(message);
        cashier.choose(message, message, message);
        return QByteArray::fromStdString(out.str());
    });
}

TEST_F(InjectionTest, WhatIsWrongWithALineOfAScript)
{
    thenNothingComesThrough(Lines::Free, [this](const QString &text) {
        std::istringstream script(QString(u"\""_s + text).toStdString());
        std::ostringstream errors;
        EXPECT_EQ(till::runScript(script, text, interpreter, errors), till::ExitStatus::CannotDo);
        return QByteArray::fromStdString(errors.str());
    });
}

TEST_F(InjectionTest, ACouponOnPaper)
{
    thenNothingComesThrough(Lines::Free, [](const QString &text) {
        return printed([&text] {
            TextPrinter().print(u"korvelloyaltyonline_coupon"_s, {},
                {{u"Number"_s, text}, {u"Message"_s, text}}, 1, true);
        });
    });
}

TEST_F(InjectionTest, AReceiptOnPaper)
{
    whenExecuted(u"add 1002"_s);
    const auto card = makeCard(u"29"_s);
    till->document()->addCardRecord(card);
    thenNothingComesThrough(Lines::Fixed, [&](const QString &text) {
        const auto client = QSharedPointer<Client>::create();
        client->setName(text);
        card->getCard()->setClient(client);
        return printed([this] {
            TextPrinter().print(receipt::templateName, {},
                receipt::data(*till->document(), receipt::Booking::Later), 1, true);
        });
    });
}

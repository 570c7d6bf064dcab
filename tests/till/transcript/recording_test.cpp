// The recording services note what happens, in order, and do it.

#include "host/framework/activitynotifier.h"
#include "host/net/restclient.h"
#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/savetofilelogic.h"
#include "host/storage/statefolder.h"
#include "tests/support/hostfixture.h"
#include "tests/support/scriptedserver.h"
#include "till/script/answerline.h"
#include "till/transcript/recordingservices.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class RecordingTest : public HostFixture, public testing::Test
{
public:
    RecordingTest()
        : services(recorder, answers)
    { }

    till::Recorder recorder;
    till::AnswerLine answers;
    till::RecordingServices services;
};

TEST_F(RecordingTest, TakingARecordingBeginsANewOne)
{
    recorder.saved();
    EXPECT_EQ(recorder.take().trace, QStringList{u"save"_s});
    EXPECT_EQ(recorder.take().trace, QStringList());
}

TEST_F(RecordingTest, ExchangesAreDoneAndNoted)
{
    ScriptedServer service;
    service.answer("yes");
    const auto client = MockFactory<RestClient>::create();
    client->post(service.url(), "body", {});
    EXPECT_EQ(client->responseBody(), "yes");
    EXPECT_EQ(recorder.take().trace, QStringList{u"post"_s});
    EXPECT_TRUE(services.exchanges().lastSucceeded());
}

TEST_F(RecordingTest, SavesAreDoneAndNoted)
{
    givenCurrentDocument();
    MockFactory<SaveToFileLogic>::create()->save(document(), {});
    EXPECT_TRUE(QFile::exists(Singleton<StateFolder>::instance()->openDocument()));
    EXPECT_EQ(recorder.take().trace, QStringList{u"save"_s});
}

TEST_F(RecordingTest, QueuedMessagesAreKeptAndNoted)
{
    auto *queue = Singleton<DBQueueBroker>::instance();
    queue->enqueue(
        u"some"_s, {{u"url"_s, u"http://127.0.0.1"_s}, {u"body"_s, QByteArray("x")}}, {});
    EXPECT_EQ(queue->waiting(), 1);
    EXPECT_EQ(recorder.take().trace, QStringList{u"enqueue some"_s});
}

TEST_F(RecordingTest, PrintsAreDoneShownAndNoted)
{
    MockFactory<TextPrinter>::create()->print(
        u"korvelloyaltyonline_coupon"_s, {}, {{u"Number"_s, u"990"_s}}, -1, true);
    const auto recording = recorder.take();
    EXPECT_EQ(recording.trace, QStringList{u"print korvelloyaltyonline_coupon"_s});
    EXPECT_EQ(recording.printed.value(0).data.value(u"Number"_s), QVariant(u"990"_s));
    EXPECT_EQ(recording.printed.value(0).copies, -1);
    EXPECT_TRUE(recording.screen.join(QString()).contains(u"990"));
}

TEST_F(RecordingTest, ThePrinterOfTheTillItselfIsOnlyShown)
{
    TextPrinter().print(u"receipt"_s, u"Чек"_s, {}, TextPrinter::defaultCopies, true);
    const auto recording = recorder.take();
    EXPECT_TRUE(recording.printed.isEmpty());
    EXPECT_TRUE(recording.trace.isEmpty());
    EXPECT_FALSE(recording.screen.isEmpty());
}

TEST_F(RecordingTest, EventsAreNotedBeforeListenersBehindActOnThem)
{
    class Answering : public BaseActivityListener
    {
    public:
        void handleEvent(const Event &event) override
        {
            if (event.getCode() == EActivityListener::ChequeClosed)
                MockFactory<Dialog>::create()->showMessage(tr::Tr(u"id"_s, {}));
        }
    } listener;
    Singleton<ActivityNotifier>::instance()->subscribe(&listener);
    Singleton<ActivityNotifier>::instance()->notify(Event(EActivityListener::ChequeClosed));
    EXPECT_EQ(recorder.take().trace, (QStringList{u"event 10"_s, u"dialog id"_s}));
}

TEST_F(RecordingTest, DialogsAreAnsweredByTheCashierAndNoted)
{
    answers.addCancel();
    answers.addText(u"1234"_s);
    const auto dialog = MockFactory<Dialog>::create();
    InputTextFormParameters form;
    form.title = tr::Tr(u"title"_s, u"Заголовок"_s);
    form.message = tr::Tr(u"form"_s, u"Код"_s);
    dialog->showMessage(tr::Tr(u"message"_s, u"Нет связи"_s));
    EXPECT_FALSE(dialog->showChoice(tr::Tr(u"choice"_s, u"Да?"_s), {}, {}));
    EXPECT_EQ(dialog->showInputTextForm(form).getData(), QVariant(u"1234"_s));
    EXPECT_TRUE(dialog->showInputTextForm(form).canceled());

    QStringList lines;
    const auto recording = recorder.take();
    for (const auto &item : recording.dialogs)
        lines.append(item.message.id() + u' ' + item.answer);
    EXPECT_EQ(lines,
        (QStringList{u"message ok"_s, u"choice cancel"_s, u"form 1234"_s, u"form cancel"_s}));
    EXPECT_EQ(recording.trace,
        (QStringList{u"dialog message"_s, u"dialog choice"_s, u"dialog form"_s, u"dialog form"_s}));
}

TEST(RecordingEndTest, TheHostHasItsOwnServicesBack)
{
    HostFixture host;
    till::Recorder recorder;
    till::AnswerLine answers;
    {
        const till::RecordingServices services(recorder, answers);
    }
    TextPrinter::setScreen({});
    MockFactory<TextPrinter>::create()->print(u"receipt"_s, u"x"_s, {}, 1, false);
    Singleton<ActivityNotifier>::instance()->notify(Event());
    EXPECT_TRUE(recorder.take().trace.isEmpty());
}

} // namespace

#include "till/transcript/recordingservices.h"

#include "host/framework/activitynotifier.h"
#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/savetofilelogic.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString ok = u"ok"_s;
const QString cancelled = u"cancel"_s;

class RecordingDialog : public Dialog
{
public:
    RecordingDialog(Recorder &recorder, Cashier &cashier)
        : m_recorder(recorder)
        , m_cashier(cashier)
    { }

    void showMessage(const tr::Tr &message, EDialogKind, EDialogDuration) override
    {
        m_recorder.dialogOpened(RecordedDialog::Kind::Message, message);
        m_cashier.read(message);
        m_recorder.dialogAnswered(ok);
    }

    bool showChoice(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject, EDialogKind,
        EDialogDuration) override
    {
        m_recorder.dialogOpened(RecordedDialog::Kind::Choice, question);
        const bool accepted = m_cashier.choose(question, accept, reject);
        m_recorder.dialogAnswered(accepted ? ok : cancelled);
        return accepted;
    }

    core::BasicDialog::Result showInputTextForm(const InputTextFormParameters &form) override
    {
        m_recorder.dialogOpened(RecordedDialog::Kind::Text, form.message);
        const auto text = m_cashier.enter(form);
        m_recorder.dialogAnswered(text.value_or(cancelled));
        return text ? core::BasicDialog::Result(*text) : core::BasicDialog::Result();
    }

private:
    Recorder &m_recorder;
    Cashier &m_cashier;
};

class RecordingSaveToFile : public SaveToFileLogic
{
public:
    explicit RecordingSaveToFile(Recorder &recorder)
        : m_recorder(recorder)
    { }

    void save(const QSharedPointer<AbstractDocument> &document, const QString &fileName) override
    {
        m_recorder.saved();
        SaveToFileLogic::save(document, fileName);
    }

private:
    Recorder &m_recorder;
};

class RecordingPrinter : public TextPrinter
{
public:
    explicit RecordingPrinter(Recorder &recorder)
        : m_recorder(recorder)
    { }

    void print(const QString &templateName, const QString &text,
        const QMap<QString, QVariant> &data, int copies, bool cut) override
    {
        m_recorder.printed({templateName, text, data, copies});
        TextPrinter::print(templateName, text, data, copies, cut);
    }

private:
    Recorder &m_recorder;
};

class RecordingQueue : public DBQueueBroker
{
public:
    explicit RecordingQueue(Recorder &recorder)
        : m_recorder(recorder)
    { }

    void enqueue(const QString &queue, const QMap<QString, QVariant> &message,
        const QString &remark) override
    {
        // First, so that only what was kept is told as kept.
        DBQueueBroker::enqueue(queue, message, remark);
        m_recorder.enqueued(queue);
    }

private:
    Recorder &m_recorder;
};

} // namespace

void RecordingListener::handleEvent(const Event &event)
{
    m_recorder.sent({static_cast<int>(event.getCode()), event.getArguments()});
}

RecordingServices::RecordingServices(Recorder &recorder, Cashier &cashier)
    : m_listener(recorder)
    , m_exchanges([&recorder] { recorder.posted(); })
{
    Singleton<ActivityNotifier>::instance()->subscribe(&m_listener);
    Singleton<DBQueueBroker>::set(QSharedPointer<RecordingQueue>::create(recorder));
    MockFactory<Dialog>::setCreator([&recorder, &cashier]() -> QSharedPointer<Dialog> {
        return QSharedPointer<RecordingDialog>::create(recorder, cashier);
    });
    MockFactory<SaveToFileLogic>::setCreator([&recorder]() -> QSharedPointer<SaveToFileLogic> {
        return QSharedPointer<RecordingSaveToFile>::create(recorder);
    });
    MockFactory<TextPrinter>::setCreator([&recorder]() -> QSharedPointer<TextPrinter> {
        return QSharedPointer<RecordingPrinter>::create(recorder);
    });
    TextPrinter::setScreen([&recorder](const QString &text) { recorder.shown(text); });
}

RecordingServices::~RecordingServices()
{
    TextPrinter::setScreen({});
    MockFactory<TextPrinter>::setCreator({});
    MockFactory<SaveToFileLogic>::setCreator({});
    MockFactory<Dialog>::setCreator({});
    Singleton<DBQueueBroker>::reset();
}

} // namespace till

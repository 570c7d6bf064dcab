#include "tests/plugin/story.h"

#include "common/names.h"
#include "host/framework/session.h"

using namespace Qt::Literals::StringLiterals;

RecordingDialog::RecordingDialog(Story &story, std::function<void()> whileShown)
    : m_story(story)
    , m_whileShown(std::move(whileShown))
{ }

void RecordingDialog::showMessage(const tr::Tr &message, EDialogKind kind, EDialogDuration duration)
{
    m_story.step(u"dialog "_s + message.id());
    m_story.dialogs.append(message);
    if (kind != EDialogKind::Attention || duration != EDialogDuration::UntilAnswered)
        m_story.step(u"dialog of another kind"_s);
    if (m_whileShown)
        m_whileShown();
}

bool RecordingDialog::showChoice(const tr::Tr &question, const tr::Tr &accept, const tr::Tr &reject,
    EDialogKind kind, EDialogDuration duration)
{
    m_story.step(u"choice "_s + question.id());
    m_story.choices.append({question, accept, reject});
    if (kind != EDialogKind::Attention || duration != EDialogDuration::UntilAnswered)
        m_story.step(u"choice of another kind"_s);
    return takesFirstChoice;
}

core::BasicDialog::Result RecordingDialog::showInputTextForm(
    const InputTextFormParameters &parameters)
{
    m_story.step(u"form "_s + parameters.formName);
    m_story.forms.append(parameters);
    return formAnswer;
}

void RecordingSaver::save(const QSharedPointer<AbstractDocument> &document, const QString &fileName)
{
    m_story.step(u"save "_s + document->getNumber());
    m_story.saved.append(document->getStoredValues().value(korvel::group));
    m_story.savedFileNames.append(fileName);
}

void RecordingPrinter::print(const QString &templateName, const QString &text,
    const QMap<QString, QVariant> &data, int copies, bool cut)
{
    m_story.step(u"print "_s + templateName);
    m_story.printed.append({templateName, text, data, copies, cut, this});
}

void RecordingDiscountLogic::process(
    const QSharedPointer<AbstractDocument> &document, EDiscountProcessing mode) const
{
    m_story.step(u"process %1"_s.arg(static_cast<int>(mode)));
    DiscountLogic::process(document, mode);
}

void RecordingListener::handleEvent(const Event &event)
{
    m_story.step(u"event %1"_s.arg(static_cast<int>(event.getCode())));
    m_story.events.append(event);
}

ScriptedClient::Answer ScriptedClient::take(const QString &operation,
    const QSharedPointer<AbstractDocument> &document,
    const QSharedPointer<korvel::ConfirmationInfo> &confirmation) const
{
    m_story.step(operation);
    const auto current = Singleton<Session>::instance()->getCurrentDocument();
    const auto stored
        = current ? current->getStoredValues().value(korvel::group) : QMap<QString, QVariant>();
    requests.append(
        {operation, document, confirmation, stored.value(korvel::plugindata::chequeData).toMap(),
            stored.value(korvel::plugindata::positionsData).toMap()});
    const Answer answer = answers.isEmpty() ? Answer() : answers.takeFirst();
    if (answer.failure)
        std::rethrow_exception(answer.failure);
    return answer;
}

void ScriptedClient::balanceRequest(const QSharedPointer<DocumentCardRecord> &card) const
{
    const Answer answer = take(u"balance "_s + card->getNumber().toString(), {});
    card->setBonusBalance(answer.result.value(korvel::result::cardNormalActiveBalance));
}

bool ScriptedClient::saleChequeRequest(const QSharedPointer<AbstractDocument> &document,
    const QString &chequeType, const QSharedPointer<korvel::ConfirmationInfo> &confirmation,
    QMap<QString, QVariant> &result) const
{
    const Answer answer = take(u"sale "_s + chequeType, document, confirmation);
    result.insert(answer.result);
    return answer.tooFewPoints;
}

void ScriptedClient::rollbackChequeRequest(
    const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result) const
{
    result.insert(take(u"rollback"_s, document).result);
}

void ScriptedClient::returnChequeRequest(const QSharedPointer<AbstractDocument> &document) const
{
    take(u"return"_s, document);
}

void ScriptedClient::saleChequeRequestOffline(
    const QSharedPointer<AbstractDocument> &document) const
{
    take(u"queue sale"_s, document);
}

void ScriptedClient::returnChequeRequestOffline(
    const QSharedPointer<AbstractDocument> &document) const
{
    take(u"queue return"_s, document);
}

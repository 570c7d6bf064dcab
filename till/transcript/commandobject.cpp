#include "till/transcript/commandobject.h"

#include "till/transcript/documentobject.h"

namespace till {

namespace {

const char *kindName(RecordedDialog::Kind kind)
{
    switch (kind) {
    case RecordedDialog::Kind::Message:
        return "message";
    case RecordedDialog::Kind::Choice:
        return "choice";
    case RecordedDialog::Kind::Text:
        return "text";
    }
    Q_UNREACHABLE();
}

Json refusalObject(const std::optional<Refusal> &refusal)
{
    if (!refusal)
        return nullptr;
    return {{"id", toJson(refusal->message.id())}, {"text", toJson(refusal->message.ru())},
        {"flag", refusal->flag}};
}

Json dialogObjects(const QList<RecordedDialog> &dialogs)
{
    Json objects = Json::array();
    for (const RecordedDialog &dialog : dialogs)
        objects.push_back({{"kind", kindName(dialog.kind)}, {"id", toJson(dialog.message.id())},
            {"text", toJson(dialog.message.ru())}, {"answer", toJson(dialog.answer)}});
    return objects;
}

Json eventObjects(const QList<RecordedEvent> &events)
{
    Json objects = Json::array();
    for (const RecordedEvent &event : events)
        objects.push_back({{"code", event.code}, {"arguments", toJson(QVariant(event.arguments))}});
    return objects;
}

Json printObjects(const QList<RecordedPrint> &prints)
{
    Json objects = Json::array();
    for (const RecordedPrint &print : prints)
        objects.push_back({{"template", toJson(print.templateName)}, {"text", toJson(print.text)},
            {"data", toJson(QVariant(print.data))}, {"copies", print.copies}});
    return objects;
}

Json noticeTexts(const QList<tr::Tr> &notices)
{
    Json texts = Json::array();
    for (const tr::Tr &notice : notices)
        texts.push_back(toJson(notice.ru()));
    return texts;
}

} // namespace

Json commandObject(const ExecutedCommand &command)
{
    return {{"line", command.line}, {"command", toJson(command.text)},
        {"result", toJson(command.outcome.result)},
        {"refusal", refusalObject(command.outcome.refusal)},
        {"dialogs", dialogObjects(command.recording.dialogs)},
        {"events", eventObjects(command.recording.events)},
        {"printed", printObjects(command.recording.printed)},
        {"notices", noticeTexts(command.outcome.notices)},
        {"trace", toJson(QVariant(command.recording.trace))},
        {"document", command.document ? documentObject(*command.document) : Json(nullptr)}};
}

} // namespace till

#include "till/transcript/recorder.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace till {

Recording Recorder::take()
{
    return std::exchange(m_recording, {});
}

void Recorder::posted()
{
    m_recording.trace.append(u"post"_s);
}

void Recorder::dialogOpened(RecordedDialog::Kind kind, const tr::Tr &message)
{
    m_recording.dialogs.append({kind, message, {}});
    m_recording.trace.append(u"dialog "_s + message.id());
}

void Recorder::dialogAnswered(const QString &answer)
{
    m_recording.dialogs.last().answer = answer;
}

void Recorder::saved()
{
    m_recording.trace.append(u"save"_s);
}

void Recorder::enqueued(const QString &queue)
{
    m_recording.trace.append(u"enqueue "_s + queue);
}

void Recorder::printed(const RecordedPrint &print)
{
    m_recording.printed.append(print);
    m_recording.trace.append(u"print "_s + print.templateName);
}

void Recorder::sent(const RecordedEvent &event)
{
    m_recording.events.append(event);
    m_recording.trace.append(u"event %1"_s.arg(event.code));
}

void Recorder::shown(const QString &text)
{
    m_recording.screen.append(text);
}

} // namespace till

#pragma once

#include "host/framework/tr.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace till {

/// A dialog that the plug-in opened.
struct RecordedDialog
{
    enum class Kind
    {
        Message,
        Choice,
        Text
    };

    Kind kind = Kind::Message;
    tr::Tr message;
    QString answer; ///< "ok", "cancel" or the text that was entered
};

struct RecordedEvent
{
    int code = 0;
    QMap<QString, QVariant> arguments;
};

/// Something that the plug-in printed.
struct RecordedPrint
{
    QString templateName;
    QString text;
    QMap<QString, QVariant> data;
    int copies = 0;
};

/// What happened during one command, each list in order.
struct Recording
{
    QList<RecordedDialog> dialogs;
    QList<RecordedEvent> events;
    QList<RecordedPrint> printed;
    QStringList trace; ///< everything together, one short text each
    QStringList screen; ///< what printers, the till's too, showed on the screen
};

/// Notes what happens while a command runs. The recording services report here.
class Recorder
{
public:
    /// The recording since the last call, and an empty one from now on.
    [[nodiscard]] Recording take();

    void posted();
    /// A dialog opens; `dialogAnswered` follows.
    void dialogOpened(RecordedDialog::Kind kind, const tr::Tr &message);
    void dialogAnswered(const QString &answer);
    void saved();
    void enqueued(const QString &queue);
    void printed(const RecordedPrint &print);
    void sent(const RecordedEvent &event);
    void shown(const QString &text);

private:
    Recording m_recording;
};

} // namespace till

#pragma once

#include "till/console/paint.h"
#include "till/transcript/commandobject.h"

#include <QString>
#include <QStringList>

#include <iosfwd>

namespace till {

/// Tells people in plain words what came of each command.
class Narrator
{
public:
    /// @param out not owned; must outlive this.
    Narrator(std::ostream &out, Paint paint);

    /// Prompts show the command and the dialogs themselves, as they happen.
    void leaveOutWhatThePromptShows() { m_atPrompt = true; }

    void tell(const ExecutedCommand &command);
    /// A script's own words between its commands; lines that follow one another stay together.
    void tellRemark(const QString &remark);

private:
    void tellPaper(const QString &paper);
    void tellHappenings(const Recording &recording);
    void tellDialog(const RecordedDialog &dialog);
    void tellRefusal(const Outcome &outcome);
    void tellDocument(const ExecutedCommand &command);
    /// Texts of the service and of documents come with a mark in place of what would work the
    /// terminal.
    void line(const QString &text);
    void line(Paint::Colour colour, const QString &text);
    void write(const QString &text);

    std::ostream &m_out;
    Paint m_paint;
    bool m_atPrompt = false;
    bool m_inRemark = false;
};

} // namespace till

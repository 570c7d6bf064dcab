#include "till/console/lineeditor.h"

#include "till/console/completion.h"

#include <QFile>

#include <editline/readline.h>

#include <cstdlib>
#include <memory>
#include <utility>

namespace till {

namespace {

using CText = std::unique_ptr<char, decltype(&std::free)>;

// The library calls plain functions and knows no data of theirs.
QStringList articleCodes;
QStringList candidates;

char *nextCandidate(const char *, int)
{
    return candidates.isEmpty() ? nullptr : strdup(candidates.takeFirst().toUtf8().constData());
}

char **complete(const char *word, int start, int)
{
    const QString before = QString::fromUtf8(rl_line_buffer, start);
    candidates = completions(before, QString::fromUtf8(word), articleCodes);
    // Without candidates of its own the library would offer file names.
    rl_attempted_completion_over = 1;
    return rl_completion_matches(word, nextCandidate);
}

} // namespace

LineEditor::LineEditor(QString historyFile, const QStringList &articles)
    : m_historyFile(std::move(historyFile))
{
    articleCodes = articles;
    rl_attempted_completion_function = complete;
    using_history();
    read_history(QFile::encodeName(m_historyFile).constData());
}

LineEditor::~LineEditor()
{
    const QByteArray name = QFile::encodeName(m_historyFile);
    write_history(name.constData());
    QFile::setPermissions(m_historyFile, QFile::ReadOwner | QFile::WriteOwner);
}

std::optional<QString> LineEditor::read(const QString &prompt)
{
    const CText line(readline(prompt.toUtf8().constData()), &std::free);
    return line ? std::optional(QString::fromUtf8(line.get())) : std::nullopt;
}

void LineEditor::remember(const QString &line)
{
    if (!line.trimmed().isEmpty())
        add_history(line.toUtf8().constData());
}

} // namespace till

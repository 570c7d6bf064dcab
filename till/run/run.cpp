#include "till/run/run.h"

#include "host/storage/statefolder.h"
#include "host/text/plaintext.h"
#include "till/console/narrator.h"
#include "till/console/prompt.h"
#include "till/console/promptcashier.h"
#include "till/core/cannotdo.h"
#include "till/run/workplace.h"
#include "till/script/interpreter.h"
#include "till/script/scriptrunner.h"
#include "till/transcript/transcriptfile.h"

#include <QFile>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

using namespace Qt::StringLiterals;

namespace till {

namespace {

bool isAtTerminal(const RunOptions &options)
{
    return options.scriptFile.isEmpty() && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

QStringList codesOf(const Catalogue &catalogue)
{
    QStringList codes;
    for (const Article &article : catalogue.articles())
        codes.append(article.code);
    return codes;
}

/// Where the commands come from: a file or standard input.
class Source
{
public:
    explicit Source(const QString &fileName)
        : m_name(fileName.isEmpty() ? u"<stdin>"_s : fileName)
    {
        if (fileName.isEmpty())
            return;
        const QByteArray path = QFile::encodeName(fileName);
        m_file.open(path.constData());
        // A folder opens like a file and then gives no line.
        if (!m_file || std::filesystem::is_directory(path.constData()))
            throw CannotDo(tr::Tr(u"cannotReadScript"_s, u"не удаётся прочитать сценарий %1 (%2)"_s)
                               .arg(fileName)
                               .arg(qt_error_string(m_file ? EISDIR : errno)),
                {u"cannotReadScriptRemedy"_s, u"укажите файл с командами"_s});
    }

    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] std::istream &stream() { return m_file.is_open() ? m_file : std::cin; }

private:
    QString m_name;
    std::ifstream m_file;
};

std::unique_ptr<AnswerLine> makeCashier(bool atTerminal, LineEditor *&editor)
{
    if (!atTerminal)
        return std::make_unique<AnswerLine>();
    // The editor needs the catalogue, and so the workplace that this cashier goes into.
    return std::make_unique<PromptCashier>(
        std::cout, [&editor](const QString &prompt) { return editor->read(prompt); });
}

void narrate(Interpreter &interpreter, Narrator &narrator, bool atTerminal)
{
    if (atTerminal)
        narrator.leaveOutWhatThePromptShows();
    interpreter.addObserver(
        [&narrator](const ExecutedCommand &command, const Json &) { narrator.tell(command); });
    if (!atTerminal)
        interpreter.setRemarkObserver(
            [&narrator](const QString &remark) { narrator.tellRemark(remark); });
}

void complain(const QString &what)
{
    std::cerr << u"korvel-till: "_s.append(plaintext::block(what)).toStdString() << std::endl;
}

ExitStatus statusFor(bool hasOpenEnds)
{
    return hasOpenEnds ? ExitStatus::NotAllDone : ExitStatus::Success;
}

ExitStatus execute(
    const RunOptions &options, Source &source, const std::unique_ptr<TranscriptFile> &transcript)
{
    const bool atTerminal = isAtTerminal(options);
    LineEditor *editor = nullptr;
    const std::unique_ptr<AnswerLine> cashier = makeCashier(atTerminal, editor);
    Workplace workplace(options, *cashier);
    Commands commands(workplace.till(), *cashier, workplace.clock());
    Interpreter interpreter(workplace.till(), commands, *cashier, workplace.recorder());
    Narrator narrator(std::cout, Paint::forStream(stdout));
    if (!TranscriptFile::isStandardOutput(options.transcriptFile))
        narrate(interpreter, narrator, atTerminal);
    bool hasOpenEnds = false;
    interpreter.addObserver([&hasOpenEnds](const ExecutedCommand &command, const Json &) {
        hasOpenEnds = hasOpenEnds || command.outcome.hasOpenEnds;
    });
    if (transcript)
        interpreter.addObserver([&transcript](const ExecutedCommand &, const Json &object) {
            transcript->write(object);
        });
    for (const tr::Tr &notice : workplace.till().start())
        complain(notice.ui());
    if (!atTerminal) {
        const auto status = runScript(source.stream(), source.name(), interpreter, std::cerr);
        return status == ExitStatus::Success ? statusFor(hasOpenEnds) : status;
    }
    LineEditor lines(
        Singleton<StateFolder>::instance()->path() + u"/history", codesOf(workplace.catalogue()));
    // The cashier reads by it. NOLINTNEXTLINE(clang-analyzer-deadcode.DeadStores)
    editor = &lines;
    runPrompt(lines, workplace.till(), interpreter, std::cerr);
    return statusFor(hasOpenEnds);
}

ExitStatus tell(const QString &what, ExitStatus status)
{
    complain(what);
    return status;
}

} // namespace

ExitStatus run(const RunOptions &options)
{
    try {
        Source source(options.scriptFile);
        std::unique_ptr<TranscriptFile> transcript;
        if (!options.transcriptFile.isEmpty())
            transcript = std::make_unique<TranscriptFile>(options.transcriptFile);
        return execute(options, source, transcript);
    } catch (const CannotDo &error) {
        return tell(error.text(), ExitStatus::CannotDo);
    } catch (const SpokenError &error) {
        return tell(error.tr().ui(), ExitStatus::Unusable);
    } catch (const std::exception &error) {
        return tell(QString::fromUtf8(error.what()), ExitStatus::Unusable);
    }
}

} // namespace till

#include "tests/powercut/flushes.h"

#include <QJsonDocument>
#include <QStringList>

#include <iomanip>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr int sumWidth = 4;
constexpr int nameWidth = 22;

QString commandOf(const QByteArray &line)
{
    const auto command = QJsonDocument::fromJson(line)[u"command"_s];
    if (!command.isString())
        throw std::runtime_error("no line of a transcript: " + line.toStdString());
    return command.toString();
}

class Steps
{
public:
    explicit Steps(const QByteArray &transcript)
        : m_transcript(transcript)
    { }

    void note(const Record &record)
    {
        if (record.kind == Record::Kind::Open)
            m_paths[record.opening] = record.payload;
        else if (record.kind == Record::Kind::Sync)
            ++m_step.flushes[QString::fromUtf8(pathOf(record))];
        else if (record.kind == Record::Kind::Write && pathOf(record) == m_transcript)
            end(commandOf(record.payload));
    }

    std::vector<FlushStep> all()
    {
        end(endStep);
        return std::move(m_ended);
    }

private:
    [[nodiscard]] QByteArray pathOf(const Record &record) const
    {
        const auto path = m_paths.find(record.opening);
        if (path == m_paths.end())
            throw std::runtime_error("an opening that nobody opened");
        return path->second;
    }

    void end(const QString &name)
    {
        m_step.name = name;
        m_ended.push_back(std::move(m_step));
        m_step = {};
    }

    QByteArray m_transcript;
    std::map<int, QByteArray> m_paths;
    FlushStep m_step;
    std::vector<FlushStep> m_ended;
};

bool endsDocument(const QString &command)
{
    return command == u"close" || command == u"cancel";
}

void printLine(std::ostream &out, int sum, const QString &name, const QString &files)
{
    out << std::setw(sumWidth) << sum << "  ";
    out << (files.isEmpty() ? name : name.leftJustified(nameWidth) + u' ' + files).toStdString()
        << '\n';
}

QString filesOf(const FlushStep &step)
{
    QStringList files;
    for (const auto &[path, count] : step.flushes)
        files.append(count == 1 ? path : u"%1 %2×"_s.arg(path).arg(count));
    return files.join(u", "_s);
}

} // namespace

int FlushStep::sum() const
{
    int all = 0;
    for (const auto &[path, count] : flushes)
        all += count;
    return all;
}

std::vector<FlushStep> flushSteps(const std::vector<Record> &records, const QByteArray &transcript)
{
    Steps steps(transcript);
    for (const Record &record : records)
        steps.note(record);
    return steps.all();
}

void printFlushes(std::ostream &out, const std::vector<FlushStep> &steps)
{
    int ofDocument = 0;
    for (const FlushStep &step : steps) {
        printLine(out, step.sum(), step.name, filesOf(step));
        ofDocument += step.sum();
        if (!endsDocument(step.name))
            continue;
        printLine(out, ofDocument, u"for the whole document\n"_s, {});
        ofDocument = 0;
    }
}

} // namespace powercut

#include "till/support/contents.h"

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

// So that one long file leaves room for the others.
constexpr qint64 shareOfOneFile = 4;
constexpr int format = 1;

QByteArray endOf(const QByteArray &lines, qint64 bytes)
{
    if (lines.size() <= bytes)
        return lines;
    const qsizetype lineEnd = lines.indexOf('\n', lines.size() - bytes - 1);
    return lineEnd < 0 ? QByteArray() : lines.mid(lineEnd + 1);
}

} // namespace

Contents::Contents(qint64 mostBytes)
    : m_mostBytes(mostBytes)
{ }

bool Contents::add(const QString &name, const QByteArray &contents)
{
    if (contents.size() > room()) {
        noteLeftOut(name, contents.size(), u"size"_s);
        return false;
    }
    m_bytes += contents.size();
    m_entries.append({name, contents});
    return true;
}

void Contents::addEnd(const QString &name, const QByteArray &lines)
{
    const QByteArray end = endOf(lines, qMin(room(), mostOfOneFile()));
    if (end.size() < lines.size())
        noteLeftOut(name, lines.size() - end.size(), u"beginning"_s);
    add(name, end);
}

qint64 Contents::mostOfOneFile() const
{
    return m_mostBytes / shareOfOneFile;
}

void Contents::noteLeftOut(const QString &name, qint64 bytes, const QString &reason)
{
    m_leftOut.push_back({{"name", toJson(name)}, {"bytes", bytes}, {"reason", toJson(reason)}});
}

void Contents::noteProblem(const QString &problem)
{
    m_problems.append(problem);
}

Json Contents::manifest() const
{
    Json files = Json::array();
    for (const archive::Entry &entry : m_entries)
        files.push_back({{"name", toJson(entry.name)}, {"bytes", entry.contents.size()}});
    Json problems = Json::array();
    for (const QString &problem : m_problems)
        problems.push_back(toJson(problem));
    return {{"format", format}, {"mostBytes", m_mostBytes}, {"files", files},
        {"leftOut", m_leftOut}, {"problems", problems}};
}

} // namespace till::support

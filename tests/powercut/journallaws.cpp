#include "host/storage/journal.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/laws.h"
#include "tests/powercut/samples.h"
#include "tests/support/hostfixture.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <set>

using namespace Qt::StringLiterals;

namespace powercut::laws {

namespace {

QByteArray contents()
{
    QFile journal(Singleton<StateFolder>::instance()->journal());
    return journal.open(QIODevice::ReadOnly) ? journal.readAll() : QByteArray();
}

/// How far the subject had come.
struct Extent
{
    int settled = 0; ///< the last line that the system had written back
    int begun = 0; ///< the last line that may be there
};

Extent extentOf(const Story &story)
{
    Extent extent;
    const auto note = [&extent](const QStringList &words) {
        const int line = words.value(1).toInt();
        extent.begun = std::max(extent.begun, line);
        if (words.first() == u"settled")
            extent.settled = line;
    };
    for (const QStringList &words : story.said)
        note(words);
    const Extent returned = extent;
    note(story.next.value_or(QStringList{u"ended"_s}));
    return {returned.settled, extent.begun};
}

class LineLaws
{
public:
    LineLaws(quint32 seed, const Extent &extent)
        : m_seed(seed)
        , m_extent(extent)
    { }

    QStringList violations(const QByteArray &journal)
    {
        for (const QByteArray &line : journal.split('\n'))
            if (!isTorn(line))
                read(QJsonDocument::fromJson(line).object());
        for (int line = 1; line <= m_extent.settled; ++line)
            if (!m_found.contains(line))
                m_sentences.append(u"line %1 of the journal was on disk and is lost"_s.arg(line));
        return m_sentences;
    }

private:
    // What did not reach the disk are zero bytes, which no line has, or is not there.
    static bool isTorn(const QByteArray &line)
    {
        return line.contains('\0') || !QJsonDocument::fromJson(line).isObject();
    }

    void read(const QJsonObject &object)
    {
        if (object[u"kind"_s] != samples::journalKind)
            return;
        const int line = object[u"line"_s].toInt();
        if (!m_found.empty() && line <= *m_found.rbegin())
            m_sentences.append(
                u"line %1 of the journal stands behind line %2"_s.arg(line).arg(*m_found.rbegin()));
        if (line > m_extent.begun
            || object[u"text"_s].toString() != samples::journalText(m_seed, line))
            m_sentences.append(u"line %1 of the journal was never written so"_s.arg(line));
        m_found.insert(line);
    }

    quint32 m_seed;
    Extent m_extent;
    std::set<int> m_found;
    QStringList m_sentences;
};

} // namespace

QStringList journalGoesOn()
{
    const QByteArray before = contents();
    Journal::append(kindOfNextLine, {});
    return journalWentOn(before, contents());
}

QStringList journalWentOn(const QByteArray &before, const QByteArray &after)
{
    if (!after.startsWith(before))
        return {u"the journal was changed by an append"_s};
    const QByteArray last = after.trimmed().split('\n').last();
    if (QJsonDocument::fromJson(last)[u"kind"_s].toString() != kindOfNextLine)
        return {u"the journal goes on with the line \"%1\""_s.arg(QString::fromUtf8(last))};
    return {};
}

QStringList journalIsKept(const QString &folder, quint32 seed, const Story &story)
{
    const HostFixture host;
    Singleton<StateFolder>::instance()->setPath(folder + u'/' + samples::stateFolder);
    return LineLaws(seed, extentOf(story)).violations(contents()) + journalGoesOn();
}

} // namespace powercut::laws

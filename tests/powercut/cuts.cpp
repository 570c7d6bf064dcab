#include "tests/powercut/cuts.h"

#include "tests/powercut/disk.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <random>
#include <utility>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr std::size_t recordsShown = 8;

QString described(const Recording &recording, const Cut &cut, quint32 seed)
{
    QString text = u"cut behind record %1 of %2, seed %3, chance %4"_s.arg(cut.record)
                       .arg(recording.records.size())
                       .arg(seed)
                       .arg(cut.chance);
    for (std::size_t record = cut.record - std::min(cut.record, recordsShown); record < cut.record;
         ++record)
        text += u"\n    "_s + described(recording.records[record]);
    return text;
}

/// Places in an order of chance; each comes before any comes again.
class Places
{
public:
    Places(std::vector<std::size_t> all, std::mt19937 &random)
        : m_all(std::move(all))
        , m_random(random)
    { }

    std::size_t next()
    {
        if (m_left == 0)
            m_left = m_all.size();
        std::swap(m_all[m_left - 1], m_all[m_random() % m_left]);
        return m_all[--m_left];
    }

private:
    std::vector<std::size_t> m_all;
    std::size_t m_left = 0; ///< those behind have come
    std::mt19937 &m_random;
};

std::vector<std::size_t> placesBehind(
    const Recording &recording, const std::function<bool(const Record &)> &isMeant)
{
    std::vector<std::size_t> places;
    for (std::size_t record = 0; record < recording.records.size(); ++record)
        if (isMeant(recording.records[record]))
            places.push_back(record + 1);
    return places;
}

// As it was before a till has started on it.
QString kept(const Tree &tree)
{
    QTemporaryDir folder(QDir::tempPath() + u"/powercut-kept-XXXXXX");
    folder.setAutoRemove(false);
    build(tree, folder.path());
    return folder.path();
}

QStringList violationsOn(const Tree &tree, const Story &story, quint32 seed, const Law &law)
{
    const QTemporaryDir folder(fastFolder() + u"/powercut-XXXXXX");
    build(tree, folder.path());
    QStringList sentences = law(folder.path(), seed, story);
    if (!sentences.isEmpty() && qEnvironmentVariableIsSet("POWERCUT_KEEP"))
        sentences.append(u"see "_s + kept(tree));
    return sentences;
}

using CutWork = std::function<void(const Cut &cut, const Tree &left, const Story &story)>;

void atEach(const Recording &recording, const std::vector<Cut> &cuts, const CutWork &work)
{
    Disk disk(recording.before);
    std::size_t applied = 0;
    for (const Cut &cut : cuts) {
        while (applied < cut.record)
            disk.apply(recording.records.at(applied++));
        work(cut, disk.afterCut(Chance(cut.chance)), storyAt(recording.records, cut.record));
    }
}

} // namespace

std::vector<Cut> cutsOf(const Recording &recording, std::size_t count, quint32 seed)
{
    std::mt19937 random(seed);
    Places any(placesBehind(recording, [](const Record &) { return true; }), random);
    Places turns(placesBehind(recording,
                     [](const Record &record) { return record.kind != Record::Kind::Write; }),
        random);
    std::vector<Cut> cuts;
    for (std::size_t cut = 0; cut < count; ++cut) {
        const std::size_t place = (cut % 2 == 0 ? any : turns).next();
        cuts.push_back({place, static_cast<quint32>(random())});
    }
    std::sort(cuts.begin(), cuts.end());
    return cuts;
}

std::vector<Cut> cutsBehind(
    const Recording &recording, const std::set<QByteArray> &said, quint32 chances)
{
    std::vector<Cut> cuts;
    const auto isMeant = [&said](const Record &record) {
        return record.kind == Record::Kind::Marker && said.contains(record.payload);
    };
    for (const std::size_t place : placesBehind(recording, isMeant))
        for (quint32 chance = 0; chance < chances; ++chance)
            cuts.push_back({place, chance});
    return cuts;
}

QStringList violations(
    const Recording &recording, const std::vector<Cut> &cuts, quint32 seed, const Law &law)
{
    QStringList sentences;
    atEach(recording, cuts, [&](const Cut &cut, const Tree &left, const Story &story) {
        for (const QString &sentence : violationsOn(left, story, seed, law))
            sentences.append(described(recording, cut, seed) + u"\n  " + sentence);
    });
    return sentences;
}

QStringList violationsOfTwo(const Recording &recording, const std::vector<Cut> &cuts,
    std::size_t again, quint32 seed, const Law &law)
{
    QStringList sentences;
    atEach(recording, cuts, [&](const Cut &cut, const Tree &left, const Story &story) {
        const Recording resumed = recordResuming(left);
        const auto lawOfThen = [&](const QString &folder, quint32 given, const Story &) {
            return law(folder, given, story);
        };
        for (const QString &sentence :
            violations(resumed, cutsOf(resumed, again, cut.chance), seed, lawOfThen))
            sentences.append(described(recording, cut, seed) + u"\n  then " + sentence);
    });
    return sentences;
}

} // namespace powercut

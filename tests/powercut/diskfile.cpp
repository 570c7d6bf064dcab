#include "tests/powercut/diskfile.h"

#include <algorithm>

namespace powercut {

namespace {

constexpr qint64 sectorBytes = 512;

void put(const QByteArray &bytes, qint64 offset, QByteArray &contents)
{
    if (contents.size() < offset + bytes.size())
        contents.resize(offset + bytes.size(), '\0');
    std::copy(bytes.cbegin(), bytes.cend(), contents.begin() + offset);
}

} // namespace

void DiskFile::write(qint64 offset, const QByteArray &bytes)
{
    add({true, offset, bytes});
}

void DiskFile::resize(qint64 size)
{
    add({false, size, {}});
}

void DiskFile::add(const Change &change)
{
    apply(change, m_contents);
    m_unsynced.push_back(change);
}

void DiskFile::sync()
{
    for (const Change &change : m_unsynced)
        apply(change, m_synced);
    m_unsynced.clear();
}

void DiskFile::apply(const Change &change, QByteArray &contents)
{
    if (change.isWrite)
        put(change.bytes, change.number, contents);
    else
        contents.resize(change.number, '\0');
}

void DiskFile::tear(const Change &change, QByteArray &contents, Chance &chance)
{
    const qint64 end = change.number + change.bytes.size();
    if (chance.ofChange() && contents.size() < end)
        contents.resize(end, '\0');
    for (qint64 at = change.number; at < end;) {
        const qint64 sectorEnd = std::min((at / sectorBytes + 1) * sectorBytes, end);
        if (chance.ofSector())
            put(change.bytes.mid(at - change.number, sectorEnd - at), at, contents);
        at = sectorEnd;
    }
}

QByteArray DiskFile::afterCut(Chance &chance) const
{
    QByteArray contents = m_synced;
    for (const Change &change : m_unsynced) {
        const Fate fate = change.isWrite ? chance.ofWrite()
            : chance.ofChange()          ? Fate::Kept
                                         : Fate::Lost;
        if (fate == Fate::Kept)
            apply(change, contents);
        else if (fate == Fate::Torn)
            tear(change, contents, chance);
    }
    return contents;
}

} // namespace powercut

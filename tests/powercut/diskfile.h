#pragma once

#include "tests/powercut/chance.h"

#include <QByteArray>

#include <vector>

namespace powercut {

/// The contents of one file: what is on disk for good, and what was done since its last sync.
class DiskFile
{
public:
    void write(qint64 offset, const QByteArray &bytes);
    void resize(qint64 size);
    /// Everything so far is on disk for good.
    void sync();

    /// As programs see it.
    [[nodiscard]] const QByteArray &contents() const { return m_contents; }
    /// As it may be after a power cut. Each write since the last sync is kept, lost, or torn at the
    /// borders of sectors, whatever becomes of those before it; of a torn one that made the file
    /// longer, the new length may be there without the bytes.
    [[nodiscard]] QByteArray afterCut(Chance &chance) const;

private:
    struct Change
    {
        bool isWrite = false;
        qint64 number = 0; ///< offset of a write, otherwise the new size
        QByteArray bytes;
    };

    static void apply(const Change &change, QByteArray &contents);
    static void tear(const Change &change, QByteArray &contents, Chance &chance);
    void add(const Change &change);

    QByteArray m_synced;
    std::vector<Change> m_unsynced;
    QByteArray m_contents;
};

} // namespace powercut

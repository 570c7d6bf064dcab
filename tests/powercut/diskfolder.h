#pragma once

#include "tests/powercut/chance.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace powercut {

class DiskFile;
class DiskFolder;

/// A file or a folder; names share it.
using DiskNode = std::variant<std::shared_ptr<DiskFile>, std::shared_ptr<DiskFolder>>;
using DiskNames = std::map<QByteArray, DiskNode>;

/// The names in one folder: those that are on disk for good, and what was done since its last sync.
class DiskFolder
{
public:
    void add(const QByteArray &name, const DiskNode &node);
    void remove(const QByteArray &name);
    /// In one step; what had the new name loses it.
    void rename(const QByteArray &name, const QByteArray &to);
    /// Everything so far is on disk for good.
    void sync();

    /// As programs see them.
    [[nodiscard]] const DiskNames &names() const { return m_names; }
    /// As they may be after a power cut: of what was done since the last sync, the last changes may
    /// be lost.
    [[nodiscard]] DiskNames afterCut(Chance &chance) const;

private:
    using Change = std::vector<std::pair<QByteArray, std::shared_ptr<DiskNode>>>;

    static void apply(const Change &change, DiskNames &names);
    void note(const Change &change);

    DiskNames m_synced;
    std::vector<Change> m_unsynced;
    DiskNames m_names;
};

} // namespace powercut

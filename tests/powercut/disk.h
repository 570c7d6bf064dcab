#pragma once

#include "tests/powercut/diskfile.h"
#include "tests/powercut/diskfolder.h"
#include "tests/powercut/record.h"
#include "tests/powercut/tree.h"

#include <map>
#include <memory>

namespace powercut {

/// A disk on which a recording is replayed, with what is on it for good and what is not yet.
///
/// As little is for good as the system promises: the contents of a file that was synced itself, and
/// the names in a folder that was. That a file was renamed, or is there at all, is not on disk
/// before its folder is.
class Disk
{
public:
    /// @param before what is on it for good to begin with.
    explicit Disk(const Tree &before = {});

    /// @throws std::runtime_error for what the model cannot answer for: a file that came from
    ///         nowhere, a move between folders, an opening whose writes need no sync.
    void apply(const Record &record);

    /// As programs see it.
    [[nodiscard]] Tree present() const;
    /// As it may be when the power goes now.
    [[nodiscard]] Tree afterCut(Chance chance) const;

private:
    struct Place
    {
        std::shared_ptr<DiskFolder> folder;
        QByteArray name;
    };

    void putForGood(const QByteArray &path, const DiskNode &node);
    [[nodiscard]] Place placeOf(const QByteArray &path) const;
    void open(const Record &record);
    [[nodiscard]] DiskNode nodeToOpen(const Record &record);
    void move(const QByteArray &paths, bool keepsOldName);
    [[nodiscard]] DiskFile &file(const Record &record) const;
    void sync(const Record &record);

    std::shared_ptr<DiskFolder> m_root;
    std::map<int, DiskNode> m_openings;
};

} // namespace powercut

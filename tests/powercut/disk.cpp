#include "tests/powercut/disk.h"

#include <QList>

#include <fcntl.h>

#include <functional>
#include <stdexcept>

namespace powercut {

namespace {

using FilePointer = std::shared_ptr<DiskFile>;
using FolderPointer = std::shared_ptr<DiskFolder>;
using NamesOf = std::function<DiskNames(const DiskFolder &)>;
using ContentsOf = std::function<QByteArray(const DiskFile &)>;

void walk(const DiskFolder &folder, const QByteArray &prefix, const NamesOf &namesOf,
    const ContentsOf &contentsOf, Tree &tree)
{
    for (const auto &[name, node] : namesOf(folder)) {
        const QByteArray path = prefix + name;
        if (const auto *file = std::get_if<FilePointer>(&node)) {
            tree.files[path] = contentsOf(**file);
        } else {
            tree.folders.insert(path);
            walk(*std::get<FolderPointer>(node), path + '/', namesOf, contentsOf, tree);
        }
    }
}

[[noreturn]] void refuse(const char *what, const QByteArray &path)
{
    throw std::runtime_error(what + (": " + path.toStdString()));
}

} // namespace

Disk::Disk(const Tree &before)
    : m_root(std::make_shared<DiskFolder>())
{
    // In the order of their names a folder comes before those in it.
    for (const QByteArray &name : before.folders)
        putForGood(name, std::make_shared<DiskFolder>());
    for (const auto &[name, contents] : before.files) {
        const auto file = std::make_shared<DiskFile>();
        file->write(0, contents);
        file->sync();
        putForGood(name, file);
    }
}

void Disk::putForGood(const QByteArray &path, const DiskNode &node)
{
    const Place place = placeOf(path);
    place.folder->add(place.name, node);
    place.folder->sync();
}

Disk::Place Disk::placeOf(const QByteArray &path) const
{
    Place place{m_root, {}};
    const auto names = path.split('/');
    for (const QByteArray &name : names.first(names.size() - 1)) {
        const auto found = place.folder->names().find(name);
        if (found == place.folder->names().end())
            refuse("a folder came from nowhere", path);
        place.folder = std::get<FolderPointer>(found->second);
    }
    place.name = names.last();
    return place;
}

void Disk::apply(const Record &record)
{
    switch (record.kind) {
    case Record::Kind::Open:
        return open(record);
    case Record::Kind::Close:
        m_openings.erase(record.opening);
        return;
    case Record::Kind::Write:
        return file(record).write(record.number, record.payload);
    case Record::Kind::Cut:
        return file(record).resize(record.number);
    case Record::Kind::Reserve:
        if (file(record).contents().size() < record.number)
            file(record).resize(record.number);
        return;
    case Record::Kind::Sync:
        return sync(record);
    case Record::Kind::Rename:
        return move(record.payload, false);
    case Record::Kind::Link:
        return move(record.payload, true);
    case Record::Kind::Unlink: {
        const Place place = placeOf(record.payload);
        return place.folder->remove(place.name);
    }
    case Record::Kind::Mkdir: {
        const Place place = placeOf(record.payload);
        return place.folder->add(place.name, std::make_shared<DiskFolder>());
    }
    case Record::Kind::Marker:
        return;
    case Record::Kind::Other:
        refuse("a call that cannot be replayed", record.payload);
    }
}

void Disk::open(const Record &record)
{
    constexpr int needsNoSync = O_DSYNC | (O_SYNC & ~O_DSYNC) | (O_TMPFILE & ~O_DIRECTORY);
    if ((record.number & needsNoSync) != 0)
        refuse("opened in a way that cannot be replayed", record.payload);
    const DiskNode node = nodeToOpen(record);
    if (const auto *opened = std::get_if<FilePointer>(&node))
        if ((record.number & O_TRUNC) != 0 && !(*opened)->contents().isEmpty())
            (*opened)->resize(0);
    m_openings.insert_or_assign(record.opening, node);
}

DiskNode Disk::nodeToOpen(const Record &record)
{
    if (record.payload.isEmpty())
        return m_root;
    const Place place = placeOf(record.payload);
    const auto found = place.folder->names().find(place.name);
    if (found != place.folder->names().end())
        return found->second;
    if ((record.number & O_CREAT) == 0)
        refuse("a file came from nowhere", record.payload);
    const auto made = std::make_shared<DiskFile>();
    place.folder->add(place.name, made);
    return made;
}

void Disk::move(const QByteArray &paths, bool keepsOldName)
{
    const qsizetype border = paths.indexOf('\0');
    const Place from = placeOf(paths.first(border));
    const Place to = placeOf(paths.mid(border + 1));
    if (keepsOldName)
        to.folder->add(to.name, from.folder->names().at(from.name));
    else if (from.folder == to.folder)
        from.folder->rename(from.name, to.name);
    else
        refuse("moved between folders", paths);
}

DiskFile &Disk::file(const Record &record) const
{
    return *std::get<FilePointer>(m_openings.at(record.opening));
}

void Disk::sync(const Record &record)
{
    std::visit([](const auto &node) { node->sync(); }, m_openings.at(record.opening));
}

Tree Disk::present() const
{
    Tree tree;
    walk(
        *m_root, {}, [](const DiskFolder &folder) { return folder.names(); },
        [](const DiskFile &file) { return file.contents(); }, tree);
    return tree;
}

Tree Disk::afterCut(Chance chance) const
{
    Tree tree;
    // A file of two names has one fate.
    std::map<const DiskFile *, QByteArray> decided;
    walk(
        *m_root, {}, [&](const DiskFolder &folder) { return folder.afterCut(chance); },
        [&](const DiskFile &file) {
            if (const auto known = decided.find(&file); known != decided.end())
                return known->second;
            return decided[&file] = file.afterCut(chance);
        },
        tree);
    return tree;
}

} // namespace powercut

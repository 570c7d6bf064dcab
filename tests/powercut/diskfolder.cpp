#include "tests/powercut/diskfolder.h"

namespace powercut {

void DiskFolder::add(const QByteArray &name, const DiskNode &node)
{
    note({{name, std::make_shared<DiskNode>(node)}});
}

void DiskFolder::remove(const QByteArray &name)
{
    note({{name, nullptr}});
}

void DiskFolder::rename(const QByteArray &name, const QByteArray &to)
{
    note({{name, nullptr}, {to, std::make_shared<DiskNode>(m_names.at(name))}});
}

void DiskFolder::note(const Change &change)
{
    apply(change, m_names);
    m_unsynced.push_back(change);
}

void DiskFolder::sync()
{
    for (const Change &change : m_unsynced)
        apply(change, m_synced);
    m_unsynced.clear();
}

void DiskFolder::apply(const Change &change, DiskNames &names)
{
    for (const auto &[name, node] : change) {
        names.erase(name);
        if (node)
            names.emplace(name, *node);
    }
}

DiskNames DiskFolder::afterCut(Chance &chance) const
{
    DiskNames names = m_synced;
    const std::size_t kept = chance.ofRow(m_unsynced.size());
    for (std::size_t change = 0; change < kept; ++change)
        apply(m_unsynced[change], names);
    return names;
}

} // namespace powercut

#pragma once

#include <QByteArray>
#include <QString>

#include <map>
#include <set>

namespace powercut {

/// What is below a folder. Paths are relative to it.
struct Tree
{
    std::map<QByteArray, QByteArray> files; ///< path and contents
    std::set<QByteArray> folders;

    bool operator==(const Tree &) const = default;
};

/// Makes the tree's files and folders below a folder that is there and empty.
/// @throws std::runtime_error when one cannot be made.
void build(const Tree &tree, const QString &folder);
/// What is below a folder.
Tree readTree(const QString &folder);

} // namespace powercut

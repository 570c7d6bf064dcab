#include "tests/powercut/tree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace powercut {

void build(const Tree &tree, const QString &folder)
{
    const QString prefix = folder + u'/';
    for (const QByteArray &name : tree.folders)
        if (!QDir().mkpath(prefix + QFile::decodeName(name)))
            throw std::runtime_error("cannot make the folder " + name.toStdString());
    for (const auto &[name, contents] : tree.files) {
        QFile file(prefix + QFile::decodeName(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
            throw std::runtime_error("cannot make the file " + name.toStdString());
    }
}

Tree readTree(const QString &folder)
{
    Tree tree;
    QDirIterator entries(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
        QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        QFile file(entries.next());
        const QByteArray name = QFile::encodeName(QDir(folder).relativeFilePath(file.fileName()));
        if (entries.fileInfo().isDir())
            tree.folders.insert(name);
        else if (file.open(QIODevice::ReadOnly))
            tree.files[name] = file.readAll();
    }
    return tree;
}

} // namespace powercut

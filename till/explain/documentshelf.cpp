#include "till/explain/documentshelf.h"

#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

// A number comes from the command line; none may lead out of the folder.
bool isFileName(const QString &number)
{
    static const QRegularExpression plain(u"\\A[0-9A-Za-z_-]+\\z"_s);
    return plain.match(number).hasMatch();
}

} // namespace

DocumentShelf::DocumentShelf(QString stateFolder)
    : m_stateFolder(std::move(stateFolder))
{ }

QString DocumentShelf::closedFolder() const
{
    return m_stateFolder + u"/closed"_s;
}

QString DocumentShelf::openFile() const
{
    return m_stateFolder + u"/document.json"_s;
}

QSharedPointer<AbstractDocument> DocumentShelf::read(
    const QString &fileName, const QByteArray &text)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray contents = file.readAll();
    if (!contents.contains(text))
        return {};
    try {
        return documentjson::read(contents, fileName);
    } catch (const StorageError &error) {
        m_problems.append(error.tr());
        return {};
    }
}

QStringList DocumentShelf::newestClosed() const
{
    QStringList files = QDir(closedFolder()).entryList({u"*.json"_s}, QDir::Files);
    const auto numberOf = [](const QString &file) { return file.section(u'.', 0, 0).toLongLong(); };
    std::sort(files.begin(), files.end(), [&numberOf](const QString &left, const QString &right) {
        return numberOf(left) > numberOf(right);
    });
    for (QString &file : files)
        file.prepend(closedFolder() + u'/');
    return files;
}

QList<QSharedPointer<AbstractDocument>> DocumentShelf::numbered(const QString &number)
{
    QList<QSharedPointer<AbstractDocument>> found;
    if (isFileName(number))
        if (const auto closed = read(closedFolder() + u'/' + number + u".json"_s))
            found.append(closed);
    const auto open = read(openFile());
    if (open && open->getNumber() == number
        && (found.isEmpty() || found.constFirst()->getCorrelationId() != open->getCorrelationId()))
        found.append(open);
    return found;
}

QSharedPointer<AbstractDocument> DocumentShelf::identified(
    const QString &correlationId, const QString &number)
{
    for (const auto &document : numbered(number))
        if (document->getCorrelationId() == correlationId)
            return document;
    return {};
}

QList<QSharedPointer<AbstractDocument>> DocumentShelf::ofCard(const QString &card, int count)
{
    QList<QSharedPointer<AbstractDocument>> found;
    for (const QString &file : QStringList{openFile()} + newestClosed()) {
        if (found.size() >= count)
            break;
        const auto document = read(file, card.toUtf8());
        if (document && document->getCardNumber() == card)
            found.append(document);
    }
    return found;
}

QList<QSharedPointer<AbstractDocument>> DocumentShelf::returnsOf(const AbstractDocument &sale)
{
    QList<QSharedPointer<AbstractDocument>> found;
    const QByteArray reference = '"' + sale.getNumber().toUtf8() + '"';
    for (const QString &file : newestClosed()) {
        const auto document = read(file, reference);
        if (document && document->getReferencedNumber() == sale.getNumber()
            && document->getOpened() >= sale.getOpened())
            found.prepend(document);
    }
    return found;
}

} // namespace till::explain

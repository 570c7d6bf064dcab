#include "host/storage/documentstore.h"

#include "host/storage/atomicfile.h"
#include "host/storage/documentfile.h"
#include "host/storage/numberkeeper.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const StateFolder &folder()
{
    return *Singleton<StateFolder>::instance();
}

QString lockFile()
{
    atomicfile::makePrivateFolder(folder().path());
    return folder().lock();
}

// Numbers come from the till and from the cashier; one must never lead out of the folder.
bool isFileName(const QString &number)
{
    static const QRegularExpression plain(u"\\A[0-9A-Za-z_-]+\\z"_s);
    return plain.match(number).hasMatch();
}

// Should a power cut bring the file back, the next start finds again that its document has ended.
void dropEndedOne()
{
    atomicfile::removeUnsynced(folder().openDocument());
}

QString closedFile(const QString &number)
{
    return folder().closedDocuments() + u'/' + number + u".json"_s;
}

} // namespace

DocumentStore::DocumentStore()
    : m_lock(lockFile())
{
    if (!m_lock.tryLock())
        throw StorageError(tr::Tr(u"stateFolderInUse"_s,
            u"%1: с этой папкой уже работает другая касса (процесс %2); завершите её или "
            u"выберите другую папку"_s)
                               .arg(folder().path())
                               .arg(m_lock.holder()));
    atomicfile::makePrivateFolder(folder().closedDocuments());
}

DocumentStore::~DocumentStore() = default;

bool DocumentStore::isClosedAlready(const AbstractDocument &document) const
{
    const auto closed = loadClosed(document.getNumber());
    return closed && documentfile::isSame(*closed, document);
}

QSharedPointer<AbstractDocument> DocumentStore::loadOpen()
{
    auto document = documentfile::load(folder().openDocument());
    if (!document)
        return {};
    if (document->getState() == EDocumentState::Closed)
        close(document);
    else if (document->getState() == EDocumentState::Cancelled || isClosedAlready(*document))
        dropEndedOne();
    else
        return document;
    return {};
}

void DocumentStore::saveOpen(const QSharedPointer<AbstractDocument> &document)
{
    documentfile::save(*document, folder().openDocument());
}

void DocumentStore::close(const QSharedPointer<AbstractDocument> &document)
{
    const QString number = document->getNumber();
    if (!isFileName(number))
        throw StorageError(tr::Tr(u"documentNumberWrong"_s,
            u"%1: «%2» — не номер документа; номер состоит из букв и цифр"_s)
                               .arg(folder().closedDocuments())
                               .arg(number));
    if (const auto closed = loadClosed(number); closed && !documentfile::isSame(*closed, *document))
        throw StorageError(tr::Tr(u"documentNumberTaken"_s,
            u"%1: там другой документ с этим номером; отмените открытый"_s)
                               .arg(closedFile(number)));
    documentfile::save(*document, closedFile(number));
    dropEndedOne();
}

void DocumentStore::discard()
{
    atomicfile::remove(folder().openDocument());
}

QSharedPointer<AbstractDocument> DocumentStore::loadClosed(const QString &number) const
{
    return isFileName(number) ? documentfile::load(closedFile(number))
                              : QSharedPointer<AbstractDocument>();
}

QStringList DocumentStore::closedNumbers() const
{
    QStringList numbers;
    const auto files
        = QDir(folder().closedDocuments()).entryInfoList({u"*.json"_s}, QDir::Files, QDir::NoSort);
    for (const QFileInfo &file : files)
        numbers.append(file.completeBaseName());
    std::sort(numbers.begin(), numbers.end(), [](const QString &left, const QString &right) {
        return left.toLongLong() < right.toLongLong();
    });
    return numbers;
}

// Only where the keeper's file is missing, after a restored copy of the folder for instance.
qint64 DocumentStore::highestInUse() const
{
    const QStringList closed = closedNumbers();
    const auto open = documentfile::load(folder().openDocument());
    const qint64 highestClosed = closed.isEmpty() ? 0 : closed.last().toLongLong();
    return qMax(highestClosed, open ? open->getNumber().toLongLong() : 0);
}

QString DocumentStore::nextNumber(int firstCheque)
{
    const auto kept = numberkeeper::highest(folder().numbers());
    const qint64 given = kept ? *kept : highestInUse();
    const qint64 next = qMax(given + 1, qint64{firstCheque});
    numberkeeper::keep(folder().numbers(), next);
    return QString::number(next);
}

// What till, journal, queue and service say about the same documents.

#include "tests/kills/laws.h"
#include "tests/restart/closedcheque.h"
#include "tests/restart/laws.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

QString numberOf(const Json &object)
{
    return QString::fromStdString(object.at("number"));
}

bool counts(const Json &transaction)
{
    return !transaction.at("rolledBack").get<bool>();
}

bool isBooked(const restart::ClosedCheque &cheque, const Json &transactions)
{
    return std::any_of(transactions.begin(), transactions.end(), [&](const Json &transaction) {
        return counts(transaction) && transaction.at("kind") == cheque.kind()
            && transaction.at("number") == cheque.number();
    });
}

bool isQueued(const Json &document, const std::vector<Message> &queue)
{
    const QString id = QString::fromStdString(document.at("correlationId"));
    return std::any_of(queue.begin(), queue.end(), [&](const Message &message) {
        return message.correlationId == id && !message.isDelivered();
    });
}

// The deliverers are done with it, and a person is not.
bool isForPerson(const Message &message)
{
    return message.state == u"refused" || message.state == u"parked";
}

// Nothing when the document does not wait so.
const Message *waitingMessageOf(const Json &document, const Evidence &evidence)
{
    const QString id = QString::fromStdString(document.at("correlationId"));
    const auto found
        = std::find_if(evidence.queue.begin(), evidence.queue.end(), [&](const Message &message) {
              return message.correlationId == id && isForPerson(message);
          });
    return found == evidence.queue.end() ? nullptr : &*found;
}

const Json *documentOf(const QString &number, const Evidence &evidence)
{
    for (const Json &document : evidence.books.closed)
        if (numberOf(document) == number)
            return &document;
    return nullptr;
}

QString what(const QString &number, const Evidence &evidence)
{
    const Json *const document = documentOf(number, evidence);
    if (!document)
        return u"document %1 was acknowledged and is gone"_s.arg(number);
    const restart::ClosedCheque cheque(*document);
    if (!cheque.hasLoyaltyCard() || isBooked(cheque, evidence.books.transactions)
        || isQueued(*document, evidence.queue))
        return {};
    return u"%1 is neither at the service nor in the queue"_s.arg(cheque.title());
}

// What a killed till began to write of the open document is written over with the next one; of a
// cheque that was cancelled then, never again.
bool isReadByNobody(const QString &temporaryFile, const JournalBook &journal)
{
    const QFileInfo file(temporaryFile);
    return file.fileName() == u"document.json.new"
        || (file.dir().dirName() == u"closed" && journal.cancelled.contains(file.baseName()));
}

} // namespace

restart::Books settledBooks(const Evidence &evidence)
{
    restart::Books books = evidence.books;
    const auto waits
        = [&](const Json &document) { return waitingMessageOf(document, evidence) != nullptr; };
    books.closed.erase(
        std::remove_if(books.closed.begin(), books.closed.end(), waits), books.closed.end());
    books.undelivered.clear();
    for (const Message &message : evidence.queue)
        if (!message.isDelivered() && !isForPerson(message))
            books.undelivered.append(message.id);
    books.temporaryFiles.removeIf(
        [&](const QString &file) { return isReadByNobody(file, evidence.journal); });
    return books;
}

std::map<int, int> waitingForPerson(const Evidence &evidence)
{
    std::map<int, int> documents;
    for (const Json &document : evidence.books.closed)
        if (const Message *const message = waitingMessageOf(document, evidence))
            ++documents[message->lastCode];
    return documents;
}

namespace laws {

QStringList acknowledgedIsKept(const Evidence &evidence)
{
    QStringList wrong;
    for (const QString &number : evidence.acknowledged)
        if (const QString sentence = what(number, evidence); !sentence.isEmpty())
            wrong.append(sentence);
    return wrong;
}

QStringList journalAgrees(const Evidence &evidence)
{
    QStringList wrong;
    for (const Json &document : evidence.books.closed)
        if (!evidence.journal.closed.contains(numberOf(document)))
            wrong.append(u"the journal does not close document %1"_s.arg(numberOf(document)));
    for (const QString &number : evidence.takenBack)
        if (!evidence.journal.cancelled.contains(number))
            wrong.append(u"the journal does not cancel document %1"_s.arg(number));
    for (const Json &transaction : evidence.books.transactions) {
        const QString number = numberOf(transaction);
        const auto &book
            = counts(transaction) ? evidence.journal.closed : evidence.journal.mentioned;
        if (!book.contains(number))
            wrong.append(u"the service has document %1, the journal has not"_s.arg(number));
        if (counts(transaction) && evidence.takenBack.contains(number))
            wrong.append(u"document %1 is cancelled and booked"_s.arg(number));
    }
    return wrong;
}

QStringList booksAgree(const Evidence &evidence)
{
    return restart::laws::violations(settledBooks(evidence));
}

} // namespace laws

} // namespace kills

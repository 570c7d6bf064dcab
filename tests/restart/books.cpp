#include "tests/restart/books.h"

#include <QDirIterator>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

QByteArray contentsOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool isJson(const QByteArray &text)
{
    return Json::accept(text.toStdString());
}

// The journal has a value on each line, each of which ends.
bool areJsonLines(const QByteArray &text)
{
    const auto lines = text.split('\n');
    return lines.constLast().isEmpty() && std::all_of(lines.cbegin(), lines.cend() - 1, &isJson);
}

bool isTorn(const QFileInfo &file)
{
    const QByteArray text = contentsOf(file.filePath());
    return (file.suffix() == u"json" && !isJson(text))
        || (file.suffix() == u"jsonl" && !areJsonLines(text));
}

void readFolder(const QString &stateFolder, Books &books)
{
    QDirIterator files(stateFolder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo file(files.next());
        if (file.suffix() == u"new")
            books.temporaryFiles.append(file.filePath());
        else if (isTorn(file))
            books.tornFiles.append(file.filePath());
        else if (file.suffix() == u"json" && file.dir().dirName() == u"closed")
            books.closed.push_back(Json::parse(contentsOf(file.filePath()).toStdString()));
    }
    books.hasOpenDocument = QFile::exists(stateFolder + u"/document.json");
}

QStringList undeliveredIn(QSqlDatabase database)
{
    QSqlQuery query(database);
    if (!query.exec(u"SELECT number, state, last_error FROM messages WHERE state <> 'delivered'"_s))
        throw std::runtime_error(query.lastError().text().toStdString());
    QStringList messages;
    while (query.next())
        messages.append(u"%1 (%2) %3"_s.arg(
            query.value(0).toString(), query.value(1).toString(), query.value(2).toString()));
    return messages;
}

Json cardsWithLedgers(const Service &service)
{
    Json cards = Json::array();
    for (const Json &card : service.get(u"cards"_s))
        cards.push_back(service.get(
            u"cards/"_s + QString::fromStdString(card.at("number").get<std::string>())));
    return cards;
}

} // namespace

QStringList undeliveredMessages(const QString &stateFolder)
{
    const QString file = stateFolder + u"/queue/queue.sqlite"_s;
    if (!QFile::exists(file))
        return {};
    const QString connection = QUuid::createUuid().toString();
    QStringList messages;
    {
        auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setDatabaseName(file);
        if (!database.open())
            throw std::runtime_error(database.lastError().text().toStdString());
        messages = undeliveredIn(database);
    }
    QSqlDatabase::removeDatabase(connection);
    return messages;
}

Books readBooks(const QString &stateFolder, const Service &service)
{
    Books books;
    readFolder(stateFolder, books);
    books.undelivered = undeliveredMessages(stateFolder);
    books.transactions = service.get(u"transactions"_s);
    books.cards = cardsWithLedgers(service);
    books.audit = service.get(u"audit"_s);
    return books;
}

} // namespace restart

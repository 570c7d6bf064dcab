#include "tests/restart/books.h"

#include <QDirIterator>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <algorithm>
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

void readFile(const QFileInfo &file, Books &books)
{
    if (file.suffix() == u"new")
        books.temporaryFiles.append(file.filePath());
    else if (isTorn(file))
        books.tornFiles.append(file.filePath());
    else if (file.suffix() == u"json" && file.dir().dirName() == u"closed")
        books.closed.push_back(Json::parse(contentsOf(file.filePath()).toStdString()));
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

void readStateFolder(const QString &folder, Books &books)
{
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        readFile(QFileInfo(files.next()), books);
    books.hasOpenDocument = QFile::exists(folder + u"/document.json");
    books.undelivered = undeliveredMessages(folder);
}

void readService(const Service &service, Books &books)
{
    books.transactions = service.get(u"transactions"_s);
    books.cards = cardsWithLedgers(service);
    books.audit = service.get(u"audit"_s);
}

} // namespace restart

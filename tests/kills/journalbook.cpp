#include "tests/kills/journalbook.h"

#include <QFile>

#include <nlohmann/json.hpp>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using Json = nlohmann::json;

constexpr int chequeClosed = 10;
constexpr int chequeCancelled = 12;

void take(const Json &line, JournalBook &book)
{
    if (!line.is_object() || !line.contains("document") || !line.at("document").is_string())
        return;
    const QString number = QString::fromStdString(line.at("document"));
    book.mentioned.insert(number);
    const Json code = line.value("code", Json());
    if (code == chequeClosed)
        book.closed.insert(number);
    if (code == chequeCancelled)
        book.cancelled.insert(number);
}

} // namespace

JournalBook journalBook(const QString &stateFolder)
{
    JournalBook book;
    QFile file(stateFolder + u"/journal.jsonl"_s);
    if (!file.open(QIODevice::ReadOnly))
        return book;
    const auto lines = file.readAll().split('\n');
    for (const QByteArray &line : lines)
        take(Json::parse(line.toStdString(), nullptr, false), book);
    return book;
}

} // namespace kills

#include "emulator/api/json.h"

#include "emulator/faults/faultwords.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

std::string text(const QString &value)
{
    return value.toStdString();
}

Json timeJson(qint64 milliseconds)
{
    return text(QDateTime::fromMSecsSinceEpoch(milliseconds, Qt::UTC).toString(Qt::ISODateWithMs));
}

Json attributesJson(const QMap<QString, QString> &attributes)
{
    Json object = Json::object();
    for (auto it = attributes.begin(); it != attributes.end(); ++it)
        object[text(it.key())] = text(it.value());
    return object;
}

Json entryJson(const LedgerEntry &entry)
{
    return {{"id", entry.id}, {"at", timeJson(entry.at)}, {"account", text(entry.account)},
        {"kind", text(entry.kind)}, {"amount", entry.amount.toDouble()},
        {"balance", entry.balanceAfter.toDouble()},
        {"transaction",
            entry.transaction ? Json(text(transactionText(entry.transaction))) : Json()}};
}

Json positionJson(const BookedPosition &position)
{
    return {{"number", position.number}, {"article", text(position.article)},
        {"price", position.price.toDouble()}, {"quantity", position.quantity.toString().toDouble()},
        {"sum", position.sum.toDouble()}, {"sumDiscounted", position.sumDiscounted.toDouble()},
        {"earned", position.earned.toDouble()}, {"earnedStatus", position.earnedStatus.toDouble()},
        {"spent", position.spent.toDouble()}, {"stickers", position.stickers.toDouble()}};
}

Json booksJson(const BooksChange &change)
{
    Json entries = Json::array();
    for (const LedgerEntry &entry : change.entries)
        entries.push_back(entryJson(entry));
    return {{"transaction",
                change.transaction ? Json(text(transactionText(change.transaction))) : Json()},
        {"entries", entries}};
}

/// Bytes from a till need not be UTF-8; JSON must be.
std::string lenientText(const QByteArray &bytes)
{
    return text(QString::fromUtf8(bytes));
}

} // namespace

Json cardJson(const Card &card, const Books &books)
{
    return {{"number", text(card.number)}, {"status", card.status}, {"type", text(card.type)},
        {"holder", text(card.holder)}, {"email", text(card.email)},
        {"chequesByEmail", card.chequesByEmail}, {"technical", card.technical},
        {"attributes", attributesJson(card.attributes)},
        {"balance", books.ledger.balance(card.number, Account::Active).toDouble()},
        {"statusBalance", books.ledger.balance(card.number, Account::Status).toDouble()},
        {"stickers", books.ledger.balance(card.number, Account::Stickers).toDouble()}};
}

Json cardWithLedgerJson(const Card &card, const Desk &desk)
{
    const Books &books = desk.books();
    Json object = cardJson(card, books);
    object["codes"] = Json::array();
    for (const WaitingCode &waiting : desk.waitingCodes(card.number))
        object["codes"].push_back({{"cheque", text(waiting.cheque)}, {"code", text(waiting.code)}});
    object["ledger"] = Json::array();
    for (const LedgerEntry &entry : books.ledger.entries(card.number))
        object["ledger"].push_back(entryJson(entry));
    return object;
}

Json transactionJson(const Transaction &transaction, const Books &books)
{
    Json object = {{"id", text(transactionText(transaction.id))}, {"kind", text(transaction.kind)},
        {"number", text(transaction.cheque.number)}, {"pos", text(transaction.cheque.till.pos)},
        {"organization", text(transaction.cheque.till.organization)},
        {"businessUnit", text(transaction.cheque.till.businessUnit)},
        {"card", text(transaction.cheque.card)}, {"processed", text(transaction.processed)},
        {"sum", transaction.sum.toDouble()},
        {"sumDiscounted", transaction.sumDiscounted.toDouble()},
        {"sale", transaction.sale ? Json(text(transactionText(transaction.sale))) : Json()},
        {"rolledBack", transaction.rolledBack}, {"positions", Json::array()}};
    for (const BookedPosition &position : books.transactions.positions(transaction.id))
        object["positions"].push_back(positionJson(position));
    return object;
}

Json exchangeJson(const Exchange &exchange, bool withTexts)
{
    Json object = {{"id", exchange.id}, {"at", timeJson(exchange.at.toMSecsSinceEpoch())},
        {"operation", exchange.operation.isEmpty() ? Json() : Json(text(exchange.operation))},
        {"card", text(exchange.card)}, {"pos", text(exchange.pos)},
        {"number", text(exchange.number)}, {"code", exchange.code ? Json(*exchange.code) : Json()},
        {"status", exchange.status},
        {"fault", exchange.fault.isEmpty() ? Json() : Json(text(exchange.fault))},
        {"milliseconds", exchange.milliseconds}, {"books", booksJson(exchange.books)}};
    if (withTexts) {
        object["request"] = lenientText(exchange.request);
        object["answer"] = lenientText(exchange.answer);
    }
    return object;
}

Json codesJson(const Desk &desk)
{
    Json codes = Json::array();
    for (const WaitingCode &waiting : desk.waitingCodes())
        codes.push_back({{"card", text(waiting.card)}, {"pos", text(waiting.pos)},
            {"cheque", text(waiting.cheque)}, {"code", text(waiting.code)}});
    return codes;
}

namespace {

/// What only a request's fault or only a connection's has.
struct FaultMembers
{
    Json operator()(const Fault &fault) const
    {
        return {{"operation", fault.operation ? text(operationName(*fault.operation)) : "all"},
            {"fault", text(faultName(fault.kind))},
            {"left", fault.left ? Json(*fault.left) : Json()}};
    }
    Json operator()(const ConnectionFault &fault) const
    {
        return {
            {"operation", nullptr}, {"fault", text(faultName(fault.kind))}, {"left", fault.left}};
    }
};

} // namespace

Json faultsJson(const FaultPlan &faults)
{
    Json list = Json::array();
    for (const FaultPlan::Entry &entry : faults.entries()) {
        Json object = {{"id", entry.id}, {"on", entry.isOn}, {"words", text(faultWords(entry))}};
        object.update(std::visit(FaultMembers(), entry.fault));
        list.push_back(object);
    }
    return list;
}

} // namespace emulator

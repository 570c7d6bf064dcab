#include "emulator/recording/requestkey.h"

#include "emulator/soap/requestreader.h"

#include <QHash>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr qsizetype shownPositions = 10;

QStringList contentOf(const std::vector<RequestPosition> &positions)
{
    QStringList content;
    for (const RequestPosition &position : positions)
        content.append(u"%1 × %2 at %3"_s.arg(
            position.article, position.quantity.toString(), position.price.toString()));
    return content;
}

struct ContentVisitor
{
    QStringList operator()(const BalanceRequest &) const { return {}; }
    QStringList operator()(const SaleRequest &sale) const { return contentOf(sale.positions); }
    QStringList operator()(const ReturnRequest &request) const
    {
        return contentOf(request.positions);
    }
    QStringList operator()(const RollbackRequest &rollback) const
    {
        return {u"transaction %1"_s.arg(rollback.transaction)};
    }
};

} // namespace

std::size_t qHash(const RequestKey &key, std::size_t seed)
{
    return qHashMulti(seed, key.operation, key.card, key.content, key.bytes);
}

RequestKey keyOf(const QByteArray &request, const MessageSchema &schema)
{
    try {
        const Request read = readRequest(request, schema);
        return {
            operationName(operationOf(read)), cardOf(read), std::visit(ContentVisitor(), read), {}};
    } catch (const RequestError &) {
        return {{}, {}, {}, request};
    }
}

QString contentDescription(const RequestKey &key)
{
    if (key.content.isEmpty())
        return u"nothing sold"_s;
    const QString shown = key.content.mid(0, shownPositions).join(u"; "_s);
    const qsizetype more = key.content.size() - shownPositions;
    return more > 0 ? u"%1 and %2 more"_s.arg(shown, QString::number(more)) : shown;
}

QString description(const RequestKey &key)
{
    if (!key.isReadable())
        return u"a request of %1 bytes that cannot be read"_s.arg(key.bytes.size());
    const QString who = u"%1, card %2"_s.arg(key.operation, key.card);
    return key.content.isEmpty() ? who : who + u", "_s + contentDescription(key);
}

} // namespace emulator

#include "emulator/api/api.h"

#include "emulator/api/eventfeed.h"
#include "emulator/api/json.h"
#include "emulator/books/audit.h"
#include "emulator/faults/faultwords.h"
#include "emulator/http/status.h"
#include "emulator/soap/indentedxml.h"

#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int listedTransactions = 1000;

HttpReply jsonReply(const Json &json)
{
    constexpr int indent = 1;
    HttpReply reply;
    reply.contentType = "application/json";
    reply.body = QByteArray::fromStdString(json.dump(indent)) + '\n';
    return reply;
}

const QString oneFault = u"faults/"_s;

HttpReply notFound(const QString &path)
{
    return textReply(httpstatus::notFound, u"there is no /api/%1"_s.arg(path));
}

HttpReply faultReply(const QString &id, bool isKnown, const QString &done)
{
    return isKnown ? textReply(httpstatus::ok, done)
                   : textReply(httpstatus::notFound, u"there is no fault %1"_s.arg(id));
}

HttpReply stopReply(const QString &text)
{
    HttpReply reply = textReply(httpstatus::ok, text);
    reply.endsService = true;
    return reply;
}

/// Puts what was ordered into the plan.
struct Order
{
    HttpReply operator()(const Fault &fault) const
    {
        plan.add(fault);
        return understood;
    }
    HttpReply operator()(const ConnectionFault &fault) const
    {
        plan.add(fault);
        return understood;
    }
    HttpReply operator()(const ClearFaults &) const
    {
        plan.clear();
        return understood;
    }
    HttpReply operator()(const StopService &) const { return stopReply(u"stop"_s); }

    FaultPlan &plan;
    HttpReply understood;
};

} // namespace

Api::Api(Desk &desk, FaultPlan &faults, ExchangeLog &log)
    : m_desk(desk)
    , m_faults(faults)
    , m_log(log)
{ }

HttpReply Api::answer(const HttpRequest &request, const QString &path, const QUrlQuery &query)
{
    if (request.method == u"GET")
        return get(path, query);
    if (request.method == u"POST")
        return post(path, request.body);
    if (request.method == u"DELETE")
        return remove(path);
    return textReply(httpstatus::wrongMethod, u"only GET, POST and DELETE are known here"_s);
}

HttpReply Api::get(const QString &path, const QUrlQuery &query) const
{
    const QString oneCard = u"cards/"_s;
    const QString oneExchange = u"exchanges/"_s;
    if (path == u"cards")
        return cards();
    if (path.startsWith(oneCard))
        return card(path.mid(oneCard.size()));
    if (path == u"transactions")
        return transactions();
    if (path == u"exchanges")
        return exchanges(query.queryItemValue(u"full"_s) == u"1");
    if (path.startsWith(oneExchange))
        return exchange(path.mid(oneExchange.size()), query.queryItemValue(u"pretty"_s) == u"1");
    if (path == u"events")
        return events();
    if (path == u"codes")
        return jsonReply(codesJson(m_desk));
    if (path == u"faults")
        return jsonReply(faultsJson(m_faults));
    if (path == u"audit")
        return auditReport();
    return notFound(path);
}

HttpReply Api::post(const QString &path, const QByteArray &body)
{
    if (path == u"faults")
        return order(body);
    if (path.startsWith(oneFault))
        return switchFault(path.mid(oneFault.size()), body.trimmed());
    if (path == u"reset")
        return reset();
    if (path == u"stop")
        return stopReply(u"stopping"_s);
    return notFound(path);
}

HttpReply Api::cards() const
{
    Json list = Json::array();
    for (const Card &known : m_desk.books().cards.all())
        list.push_back(cardJson(known, m_desk.books()));
    return jsonReply(list);
}

HttpReply Api::card(const QString &number) const
{
    const auto known = m_desk.books().cards.find(number);
    if (!known)
        return textReply(httpstatus::notFound, u"there is no card %1"_s.arg(number));
    return jsonReply(cardWithLedgerJson(*known, m_desk));
}

HttpReply Api::transactions() const
{
    Json list = Json::array();
    for (const Transaction &transaction : m_desk.books().transactions.latest(listedTransactions))
        list.push_back(transactionJson(transaction, m_desk.books()));
    return jsonReply(list);
}

HttpReply Api::exchanges(bool withTexts) const
{
    const auto &exchanges = m_log.exchanges();
    Json list = Json::array();
    std::transform(exchanges.crbegin(), exchanges.crend(), std::back_inserter(list),
        [withTexts](const Exchange &exchange) { return exchangeJson(exchange, withTexts); });
    return jsonReply(list);
}

HttpReply Api::exchange(const QString &id, bool isForReading) const
{
    const Exchange *kept = m_log.find(id.toLongLong());
    if (!kept)
        return textReply(httpstatus::notFound, u"exchange %1 is not kept"_s.arg(id));
    if (!isForReading)
        return jsonReply(exchangeJson(*kept, true));
    Exchange indented = *kept;
    indented.request = indentedXml(kept->request);
    indented.answer = indentedXml(kept->answer);
    return jsonReply(exchangeJson(indented, true));
}

HttpReply Api::events() const
{
    HttpReply reply;
    reply.contentType = "text/event-stream";
    reply.events = std::make_shared<EventFeed>(m_desk, m_faults, m_log);
    return reply;
}

HttpReply Api::auditReport() const
{
    const AuditReport report = audit(m_desk.books());
    Json problems = Json::array();
    for (const QString &problem : report.problems)
        problems.push_back(problem.toStdString());
    return jsonReply(
        {{"ok", report.problems.isEmpty()}, {"cards", report.cards}, {"entries", report.entries},
            {"transactions", report.transactions}, {"problems", problems}});
}

HttpReply Api::order(const QByteArray &words)
{
    try {
        const FaultCommand command = parseFaultWords(QString::fromUtf8(words));
        return std::visit(Order{m_faults, textReply(httpstatus::ok, faultWords(command))}, command);
    } catch (const FaultWordsError &error) {
        return textReply(httpstatus::badRequest, QString::fromUtf8(error.what()));
    }
}

HttpReply Api::switchFault(const QString &id, const QByteArray &word)
{
    if (word != "on" && word != "off")
        return textReply(
            httpstatus::badRequest, u"\"%1\": expected on or off"_s.arg(QString::fromUtf8(word)));
    return faultReply(id, m_faults.setOn(id.toInt(), word == "on"), QString::fromUtf8(word));
}

HttpReply Api::remove(const QString &path)
{
    if (!path.startsWith(oneFault))
        return notFound(path);
    const QString id = path.mid(oneFault.size());
    return faultReply(id, m_faults.remove(id.toInt()), u"removed"_s);
}

HttpReply Api::reset()
{
    m_desk.reset();
    m_faults.clear();
    m_log.clear();
    return textReply(httpstatus::ok, u"reset"_s);
}

} // namespace emulator

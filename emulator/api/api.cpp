#include "emulator/api/api.h"

#include "emulator/api/json.h"
#include "emulator/books/audit.h"
#include "emulator/http/status.h"

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

HttpReply notFound(const QString &path)
{
    return textReply(httpstatus::notFound, u"there is no /api/%1"_s.arg(path));
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
    HttpReply operator()(const RefuseConnections &refusal) const
    {
        plan.refuse(refusal);
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
    return textReply(httpstatus::wrongMethod, u"only GET and POST are known here"_s);
}

HttpReply Api::get(const QString &path, const QUrlQuery &query) const
{
    const QString oneCard = u"cards/"_s;
    if (path == u"cards")
        return cards();
    if (path.startsWith(oneCard))
        return card(path.mid(oneCard.size()));
    if (path == u"transactions")
        return transactions();
    if (path == u"exchanges")
        return exchanges(query.queryItemValue(u"full"_s) == u"1");
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
    return jsonReply(cardWithLedgerJson(*known, m_desk.books()));
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
    Json list = Json::array();
    for (auto it = m_log.exchanges().rbegin(); it != m_log.exchanges().rend(); ++it)
        list.push_back(exchangeJson(*it, withTexts));
    return jsonReply(list);
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

HttpReply Api::reset()
{
    m_desk.reset();
    m_faults.clear();
    m_log.clear();
    return textReply(httpstatus::ok, u"reset"_s);
}

} // namespace emulator

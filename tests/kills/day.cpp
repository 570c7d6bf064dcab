// A day from its first cheque to the comparison of the books.

#include "tests/kills/day.h"

#include "tests/kills/laws.h"
#include "tests/kills/shopping.h"
#include "tests/kills/trouble.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

// The service tells of no more exchanges than these.
constexpr std::size_t toldExchanges = 500;
constexpr int saleType = 1;
constexpr quint32 bringsBack = 25; // percent of the cheques, when something was sold
constexpr quint32 isDelivered = 35; // percent of the cheques behind which the queue is delivered

restart::Scenario shop()
{
    return {u"kills"_s, QStringLiteral(KILLS_SOURCE_FOLDER "/tests/kills"), {}};
}

bool isSomething(const Quantities &quantities)
{
    return std::any_of(
        quantities.cbegin(), quantities.cend(), [](double quantity) { return quantity > 0; });
}

void countLostAnswers(const Json &exchanges, Tally &tally)
{
    for (const Json &exchange : exchanges)
        if (const Json fault = exchange.value("fault", Json()); fault.is_string())
            ++(trouble::isActedUpon(QByteArray::fromStdString(fault))
                    ? tally.answersLostActedUpon
                    : tally.answersLostNotActedUpon);
}

void countMessages(const std::vector<Message> &queue, Tally &tally)
{
    tally.messages = static_cast<int>(queue.size());
    for (const Message &message : queue)
        tally.attempts += message.attempts;
}

} // namespace

Day::Day(const DayPlan &plan, Wrong wrong)
    : m_plan(plan)
    , m_wrong(wrong)
    , m_dice(plan.seed, plan.day)
    , m_premises(shop())
    , m_tillsMachine(m_premises.state())
    , m_deliverersMachine(m_premises.state())
    , m_service(m_premises)
    , m_witness(m_premises.state())
    , m_relay(m_premises.servicePort())
{
    m_relay.showRequestsTo([this](const QByteArray &request) {
        m_witness.see(request);
        doWrong(request);
    });
    if (m_wrong == Wrong::AskedAgain)
        m_tillsMachine.set(faults::spoilVariable, QString::fromLatin1(faults::spoilRetry));
    if (m_wrong == Wrong::Patient)
        m_tillsMachine.set(faults::spoilVariable, QString::fromLatin1(faults::spoilPatience));
}

DayReport Day::run(bool keep)
{
    open();
    for (const bool isStruck : m_plan.isStruck)
        sell(isStruck);
    end();
    const Evidence found = evidence();
    for (const laws::Law &law : laws::all)
        for (const QString &sentence : law.violations(found))
            m_report.findings.push_back({QString::fromLatin1(law.name), sentence});
    m_report.tally.waitingForPerson = waitingForPerson(found);
    m_report.tally.exchanges = static_cast<int>(found.exchanges.size());
    m_report.tally.tillsLongest = found.tillsLongest;
    m_report.tally.deliverersLongest = found.deliverersLongest;
    countLostAnswers(found.exchanges, m_report.tally);
    countMessages(found.queue, m_report.tally);
    if (keep && !m_report.findings.empty())
        m_report.folder = m_premises.keep();
    return std::move(m_report);
}

void Day::open()
{
    m_premises.setLoyaltyPort(m_relay.port());
    startTill();
    // Makes the folders that are watched.
    tell(u"show"_s);
    const QString state = m_premises.state();
    m_watch = std::make_unique<restart::WriteWatch>(
        QStringList{state, state + u"/closed"_s, state + u"/queue"_s});
}

void Day::sell(bool isStruck)
{
    std::optional<Strike> planned;
    if (isStruck)
        planned = strike(m_dice);
    const bool strikesTill = planned && planned->victim == Victim::Till;
    const auto tillsStrike = strikesTill ? planned : std::nullopt;
    if (m_dice.falls(bringsBack))
        takeBack(tillsStrike);
    else
        sellCheque(tillsStrike);
    // What a kill or a refusal has left.
    closeOpenDocument();
    m_service.orderFault("clear");
    const bool strikesDeliverer = planned && !strikesTill;
    if (strikesDeliverer)
        deliver(planned);
    else if (m_dice.falls(isDelivered))
        deliver(std::nullopt);
}

void Day::sellCheque(const std::optional<Strike> &strike)
{
    order(trouble::ofSale(m_dice));
    perform(sale(m_dice), strike);
}

// A sale of which everything has come back is not brought again.
void Day::takeBack(const std::optional<Strike> &strike)
{
    restart::Books books;
    restart::readStateFolder(m_premises.state(), books);
    std::vector<std::pair<QString, Quantities>> sales;
    for (const Json &document : books.closed)
        if (document.at("type") == saleType)
            if (const Quantities rest = left(document, books.closed); isSomething(rest))
                sales.emplace_back(QString::fromStdString(document.at("number")), rest);
    if (sales.empty())
        return sellCheque(strike);
    std::sort(sales.begin(), sales.end(),
        [](const auto &one, const auto &other) { return one.first.toInt() < other.first.toInt(); });
    const auto [number, rest] = m_dice.oneOf(sales);
    order(trouble::ofReturn(m_dice));
    give(u"return "_s + number);
    if (!m_document.is_null())
        perform(returned(m_dice, m_document, rest), strike);
}

void Day::order(const std::optional<QByteArray> &trouble) const
{
    if (trouble)
        m_service.orderFault(*trouble);
}

void Day::end()
{
    m_service.orderFault("clear");
    closeOpenDocument();
    deliverAll();
    m_till->finish();
    m_ends.push_back(m_till->end(false));
}

Evidence Day::evidence()
{
    Evidence found;
    found.acknowledged = m_acknowledged;
    found.takenBack = m_takenBack;
    found.journal = journalBook(m_premises.state());
    found.queue = queueBook(m_premises.state());
    found.books.ends = m_ends;
    restart::readStateFolder(m_premises.state(), found.books);
    restart::readService(m_service, found.books);
    found.exchanges = m_service.get(u"exchanges?full=1"_s);
    if (found.exchanges.size() >= toldExchanges)
        throw std::runtime_error("a day has more exchanges than the service tells of");
    found.sightings = m_witness.sightings();
    using std::chrono::microseconds;
    found.tillsLongest = microseconds(m_tillsMachine.control().longestMicroseconds.load());
    found.deliverersLongest
        = microseconds(m_deliverersMachine.control().longestMicroseconds.load());
    return found;
}

} // namespace kills

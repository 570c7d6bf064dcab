#include "tests/soak/soak.h"

#include "tests/faults/machine.h"
#include "tests/kills/shopping.h"
#include "tests/kills/trouble.h"
#include "tests/restart/premises.h"
#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace soak {

namespace {

using Clock = std::chrono::steady_clock;
using Microseconds = std::chrono::duration<double, std::micro>;

constexpr quint32 meetsTrouble = 1; // percent of the cheques
constexpr double percent = 100.0;

/// A till that sells one cheque after the other, with its service.
class Shop
{
public:
    explicit Shop(const Plan &plan)
        : m_dice(plan.seed, 0)
        , m_premises(
              restart::Scenario{u"kills"_s, QStringLiteral(SOAK_SOURCE_FOLDER "/tests/kills"), {}})
        , m_machine(m_premises.state())
        , m_service(m_premises)
    {
        m_premises.setLoyaltyPort(m_premises.servicePort());
        if (plan.leak)
            m_machine.set(faults::spoilVariable, QString::fromLatin1(plan.leak));
        m_till = plan.leak
            ? std::make_unique<restart::TillProcess>(m_premises, m_machine.environment())
            : std::make_unique<restart::TillProcess>(m_premises);
    }

    void sell()
    {
        const bool isTroubled = m_dice.falls(meetsTrouble);
        if (isTroubled)
            m_service.orderFault(kills::trouble::ofTroubledSale(m_dice));
        const QStringList commands = kills::sale(m_dice);
        for (const QString &command : commands)
            tell(command);
        // Where it was refused, the cashier gives it up, or closes it after all.
        for (const QString &command : {u"cancel"_s, u"close"_s, u"cancel"_s})
            if (!m_isAtEnd)
                tell(command);
        // What nobody asked for would fit the questions of later cheques, and pile up.
        tell(u"answer none"_s);
        if (isTroubled)
            m_service.orderFault("clear");
        m_faults += isTroubled ? 1 : 0;
    }

    // A service that is built for debugging looks through a card's books at each request, which
    // would take longer from cheque to cheque.
    void forgetBooks() const { m_service.reset(); }

    [[nodiscard]] int faults() const { return m_faults; }
    [[nodiscard]] ProcessState state() const { return stateOf(m_till->processId()); }
    void finish() { m_till->finish(); }

private:
    void tell(const QString &command)
    {
        const auto object = m_till->tell(command);
        if (!object)
            throwEnd(command);
        const auto &document = object->at("document");
        m_isAtEnd = document.is_null() || document.at("state") != "open";
    }

    [[noreturn]] void throwEnd(const QString &command)
    {
        m_till->awaitEnd();
        const auto end = m_till->end(false);
        throw std::runtime_error(
            u"at \"%1\" the till ended by signal %2, status %3: %4"_s.arg(command)
                .arg(end.signal)
                .arg(end.status)
                .arg(m_till->complaint())
                .toStdString());
    }

    kills::Dice m_dice;
    restart::Premises m_premises;
    faults::Machine m_machine;
    restart::Service m_service;
    std::unique_ptr<restart::TillProcess> m_till;
    bool m_isAtEnd = true;
    int m_faults = 0;
};

/// A till that was started for the block.
class FreshShop
{
public:
    explicit FreshShop(const Plan &plan)
        : m_shop({plan.cheques, plan.settling, plan.seed, nullptr})
    {
        // What is done only once belongs to no cheque.
        m_shop.sell();
        m_before = m_shop.state().processor;
    }

    void sell() { m_shop.sell(); }

    /// Mean processor time for a cheque so far.
    double finish()
    {
        const auto used = m_shop.state().processor - m_before;
        m_shop.finish();
        return Microseconds(used).count() / (chequesOfBlock / oldPerFresh);
    }

private:
    Shop m_shop;
    std::chrono::nanoseconds m_before{};
};

/// Sells a block in both.
ChequeTimes sellBlock(Shop &shop, const Plan &plan)
{
    FreshShop fresh(plan);
    const ProcessState before = shop.state();
    for (int sold = 1; sold <= chequesOfBlock; ++sold) {
        shop.sell();
        if (sold % oldPerFresh == 0)
            fresh.sell();
    }
    const auto used = shop.state().processor - before.processor;
    return {Microseconds(used).count() / chequesOfBlock, fresh.finish()};
}

} // namespace

Slope Report::slope() const
{
    std::vector<double> ratios;
    std::transform(times.cbegin(), times.cend(), std::back_inserter(ratios),
        [](const ChequeTimes &block) { return block.ratio(); });
    return slopeOf(ratios);
}

Report run(const Plan &plan, const std::function<void(int)> &tell)
{
    const auto begun = Clock::now();
    Shop shop(plan);
    Report report{plan, {}, {}, 0, {}, {}};
    for (int sold = 0; sold < plan.settling; ++sold) {
        if (sold % chequesOfBlock == 0)
            shop.forgetBooks();
        shop.sell();
    }
    report.settled = shop.state();
    for (int sold = plan.settling; sold + chequesOfBlock <= plan.cheques; sold += chequesOfBlock) {
        tell(sold);
        shop.forgetBooks();
        report.times.push_back(sellBlock(shop, plan));
    }
    report.ended = shop.state();
    report.faults = shop.faults();
    shop.finish();
    report.duration = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begun);
    return report;
}

QStringList violations(const Report &report, bool withTime)
{
    QStringList wrong;
    if (report.growth() >= allowedGrowth)
        wrong.append(u"the till holds %1 bytes more"_s.arg(report.growth()));
    if (report.ended.descriptors > report.settled.descriptors)
        wrong.append(
            u"the till has %1 descriptors open instead of %2"_s.arg(report.ended.descriptors)
                .arg(report.settled.descriptors));
    if (withTime && !report.slope().maybeNone() && report.slope().value > 0)
        wrong.append(u"each %1 cheques take %2 % of a fresh till's time more than those before"_s
                         .arg(chequesOfBlock)
                         .arg(report.slope().value * percent));
    return wrong;
}

} // namespace soak

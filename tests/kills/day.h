#pragma once

#include "tests/faults/machine.h"
#include "tests/kills/deliverer.h"
#include "tests/kills/evidence.h"
#include "tests/kills/plan.h"
#include "tests/kills/tally.h"
#include "tests/kills/witness.h"
#include "tests/restart/premises.h"
#include "tests/restart/relay.h"
#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"
#include "tests/restart/writewatch.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace kills {

/// What a day can have wrong on purpose, so that a law must find it.
enum class Wrong
{
    None,
    QueueDropped, ///< the queue is gone after each kill
    BookedTwice, ///< the service books each registration a second time
    PostDoubled, ///< everything is sent to the service twice
    AskedAgain, ///< the till repeats each failed exchange by itself
    Patient ///< the till's exchanges do not end at their limit
};

/// What a law says of a day.
struct Finding
{
    QString law;
    QString sentence;
};

/// How a day went.
struct DayReport
{
    Tally tally;
    std::vector<Finding> findings;
    /// Where its folder was left, because something was found; empty otherwise.
    QString folder;
};

/// One day in a shop with a till, a deliverer and a service of its own: cheques are sold, and some
/// of them are struck by a kill; in the end everything is finished and delivered, and the books are
/// compared.
class Day
{
public:
    /// @param plan must outlive this.
    explicit Day(const DayPlan &plan, Wrong wrong = Wrong::None);

    /// Once.
    /// @param keep leaves the folder where it is when something was found.
    /// @throws std::runtime_error when till or service do not play along.
    DayReport run(bool keep);

private:
    void open();
    void sell(bool isStruck);
    void sellCheque(const std::optional<Strike> &strike);
    void takeBack(const std::optional<Strike> &strike);
    void perform(const QStringList &commands, const std::optional<Strike> &strike);
    void end();
    [[nodiscard]] Evidence evidence();

    // The till.
    void startTill();
    void restartTill();
    std::optional<Json> tell(const QString &command);
    void give(const QString &command);
    void note(const Json &object);
    void killTillAt(const QString &command, const Strike &strike);
    bool feedUntilKilled(const QString &command, const Strike &strike);
    void goOn(const QString &command, bool isTold);
    void countKill(Victim victim, restart::Manner manner);
    Json openDocument();
    void closeOpenDocument();

    // The queue.
    void deliver(const std::optional<Strike> &strike);
    void deliverQuietly(const QStringList &words);
    bool killDelivererAt(const Strike &strike);
    void deliverAll();
    void orderStrike(const Strike &strike, std::function<void()> kill);
    void forgetStrike();

    // The service.
    void order(const std::optional<QByteArray> &trouble) const;

    void doWrong(const QByteArray &request) const;
    void checkWhatWasAcknowledged();

    const DayPlan &m_plan;
    const Wrong m_wrong;
    Dice m_dice;
    restart::Premises m_premises;
    faults::Machine m_tillsMachine;
    faults::Machine m_deliverersMachine;
    restart::Service m_service;
    Witness m_witness;
    restart::Relay m_relay;
    std::unique_ptr<restart::TillProcess> m_till;
    std::unique_ptr<restart::WriteWatch> m_watch;
    std::vector<restart::TillEnd> m_ends;
    Json m_document; ///< open after the last command; null when there is none
    QStringList m_answers; ///< given since the last other command
    QSet<QString> m_acknowledged;
    QSet<QString> m_takenBack;
    DayReport m_report;
};

} // namespace kills

#pragma once

#include "tests/restart/answersinline.h"
#include "tests/restart/books.h"
#include "tests/restart/kill.h"
#include "tests/restart/premises.h"
#include "tests/restart/relay.h"
#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"
#include "tests/restart/writewatch.h"

#include <QProcessEnvironment>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace restart {

/// How a scenario went.
struct Outcome
{
    Books books;
    /// The transcript objects of the scenario's commands, null where a command was not carried out.
    std::vector<Json> objects;
    /// What those commands did.
    std::vector<Activity> activities;
    /// Commands that made no sense any more, with what the till said.
    QStringList skipped;
};

/// A till in whose process something fails, which may end it.
struct Trouble
{
    /// What that till is started with; those after it are in no trouble.
    QProcessEnvironment environment;
    std::function<void()> begins; ///< called when it has started, before the first command
    std::function<bool(const TillEnd &)> mayEndSo; ///< whether the trouble may end it in that way
};

/// One scenario from its first command to the end of the day, on premises of its own: a till is
/// killed where that is wanted and started again, what is due is given again, and in the end the
/// open document is closed and the queue delivered.
class Course
{
public:
    /// @param scenario must outlive this.
    explicit Course(const Scenario &scenario);

    /// Goes through it without a kill. Once.
    /// @throws std::runtime_error when till or service do not play along.
    Outcome run();
    /// Goes through it with a kill. Once.
    /// @param undisturbed the objects of the same scenario without a kill.
    /// @throws std::runtime_error also when the moment of the kill never came.
    Outcome run(const Kill &kill, const std::vector<Json> &undisturbed);
    /// Goes through it with a till in trouble. Once.
    /// @param undisturbed the objects of the same scenario without any.
    /// @throws std::runtime_error also when a till ends as it may not.
    Outcome run(const Trouble &trouble, const std::vector<Json> &undisturbed);

    /// The state folder of its tills.
    [[nodiscard]] QString stateFolder() const { return m_premises.state(); }
    /// Leaves the folder where it is, for a look at it; its path.
    QString keepFolder() { return m_premises.keep(); }

private:
    void open();
    void feed(std::size_t place);
    void killAt(const Kill &kill, const std::vector<Json> &undisturbed);
    void killAtExchange(const Kill &kill, Moment moment);
    void killAtWrite(const Kill &kill);
    [[nodiscard]] std::function<void()> killer() const;
    void goOn(const Kill &kill, const Json &undisturbed);
    void note(std::size_t place, const Json &object);
    void feedInTrouble(std::size_t place, const std::vector<Json> &undisturbed);
    bool hasEndedByTrouble();

    void startTill();
    void startTillAgain();
    void giveAnswersAgain();
    void giveAgain(const QString &command);
    void noteKill();
    void noteEnd(bool byUs);
    /// Gives a command; where the till refuses it another till goes on.
    std::optional<Json> tell(const QString &command);
    Json openDocument();

    void closeOpenDocument();
    void deliverAll();
    Outcome finish();

    const Scenario &m_scenario;
    Premises m_premises;
    Service m_service;
    Relay m_relay;
    const Trouble *m_trouble = nullptr; ///< of the running till; null when there is none
    std::unique_ptr<TillProcess> m_till;
    std::unique_ptr<WriteWatch> m_watch;
    Outcome m_outcome;
    AnswersInLine m_answers;
    QString m_clock; ///< the last `clock` command; empty when there was none
    Json m_document; ///< open after the last command; null when there is none
};

} // namespace restart

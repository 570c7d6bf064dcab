#include "tests/restart/course.h"

#include "tests/restart/effect.h"

#include <algorithm>
#include <csignal>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

// Of a till that refuses a command; it ends then.
constexpr int cannotDo = 2;
// A message that is not delivered by then never will be.
constexpr int greatestDeliveries = 5;

Json openDocumentOf(const Json &object)
{
    const Json &document = object.at("document");
    return !document.is_null() && document.at("state") == "open" ? document : Json();
}

int exchangesIn(const Json &object)
{
    const Json &trace = object.at("trace");
    return static_cast<int>(std::count(trace.begin(), trace.end(), "post"));
}

bool stopsService(const Command &command)
{
    return command.name() == u"fault" && command.argument(1) == u"stop";
}

} // namespace

Course::Course(const Scenario &scenario)
    : m_scenario(scenario)
    , m_premises(scenario)
    , m_service(m_premises)
    , m_relay(m_premises.servicePort())
{
    m_outcome.objects.resize(scenario.commands.size());
    m_outcome.activities.resize(scenario.commands.size());
}

Outcome Course::run()
{
    open();
    for (std::size_t place = 0; place < m_scenario.commands.size(); ++place)
        feed(place);
    return finish();
}

Outcome Course::run(const Kill &kill, const std::vector<Json> &undisturbed)
{
    open();
    for (std::size_t place = 0; place < m_scenario.commands.size(); ++place)
        if (place == kill.command)
            killAt(kill, undisturbed);
        else
            feed(place);
    return finish();
}

void Course::open()
{
    m_premises.setLoyaltyPort(m_relay.port());
    startTill();
    // Makes the folders that are watched.
    tell(u"show"_s);
    const QString state = m_premises.state();
    m_watch = std::make_unique<WriteWatch>(
        QStringList{state, state + u"/closed"_s, state + u"/queue"_s});
}

Outcome Course::run(const Trouble &trouble, const std::vector<Json> &undisturbed)
{
    m_trouble = &trouble;
    open();
    trouble.begins();
    for (std::size_t place = 0; place < m_scenario.commands.size(); ++place)
        feedInTrouble(place, undisturbed);
    return finish();
}

void Course::feedInTrouble(std::size_t place, const std::vector<Json> &undisturbed)
{
    const Trouble *const before = m_trouble;
    feed(place);
    if (m_trouble != before)
        goOn({place, Manner::After, 0, true}, undisturbed.at(place));
}

// The cashier starts it again; that one is in no trouble.
bool Course::hasEndedByTrouble()
{
    if (!m_trouble || !m_trouble->mayEndSo(m_till->end(false)))
        return false;
    m_trouble = nullptr;
    startTillAgain();
    return true;
}

void Course::feed(std::size_t place)
{
    m_watch->takeCount();
    if (const auto object = tell(m_scenario.commands.at(place).text))
        note(place, *object);
}

void Course::killAt(const Kill &kill, const std::vector<Json> &undisturbed)
{
    switch (kill.manner) {
    case Manner::After:
        feed(kill.command);
        m_till->kill();
        break;
    case Manner::Asked:
        killAtExchange(kill, Moment::Asked);
        break;
    case Manner::Acted:
        killAtExchange(kill, Moment::Acted);
        break;
    case Manner::Answered:
        killAtExchange(kill, Moment::Answered);
        break;
    case Manner::Written:
        killAtWrite(kill);
        break;
    }
    noteKill();
    goOn(kill, undisturbed.at(kill.command));
}

std::function<void()> Course::killer() const
{
    return [till = m_till.get()] { till->strikeDead(); };
}

void Course::killAtExchange(const Kill &kill, Moment moment)
{
    m_relay.strikeAt(kill.occasion, moment, killer());
    if (const auto object = m_till->tell(m_scenario.commands.at(kill.command).text)) {
        // Only a till that was given the answer can have come to the end of the command.
        if (moment != Moment::Answered)
            throw std::runtime_error("the exchange at which to kill the till never came");
        note(kill.command, *object);
    }
    if (!m_till->awaitEnd())
        throw std::runtime_error("the till was not killed");
}

// How many writes there are is not the same every time; at the latest it is killed after them.
void Course::killAtWrite(const Kill &kill)
{
    m_watch->strikeAt(kill.occasion, killer());
    if (const auto object = m_till->tell(m_scenario.commands.at(kill.command).text))
        note(kill.command, *object);
    m_watch->strikeAt(0, {});
    m_till->kill();
}

// The cashier looks at the till and gives the command again where it is still due.
void Course::goOn(const Kill &kill, const Json &undisturbed)
{
    const Command &command = m_scenario.commands.at(kill.command);
    const bool isTold = !m_outcome.objects.at(kill.command).is_null();
    const Json now = openDocument();
    const bool worked = isTold || hasWorked(command, m_document, now);
    // What it was answered meanwhile, nobody has seen.
    if (worked && !isTold)
        m_answers.note(command, undisturbed);
    giveAnswersAgain();
    if (!worked && kill.isGivenAgain)
        feed(kill.command);
    else
        m_document = now;
}

void Course::note(std::size_t place, const Json &object)
{
    const Command &command = m_scenario.commands.at(place);
    m_outcome.objects.at(place) = object;
    m_outcome.activities.at(place) = {exchangesIn(object), m_watch->takeCount()};
    m_answers.note(command, object);
    m_document = openDocumentOf(object);
    if (command.name() == u"clock")
        m_clock = command.text;
    if (stopsService(command))
        m_service.awaitStop();
}

void Course::startTill()
{
    m_till = m_trouble ? std::make_unique<TillProcess>(m_premises, m_trouble->environment)
                       : std::make_unique<TillProcess>(m_premises);
}

// The clock was the ended till's alone.
void Course::startTillAgain()
{
    startTill();
    if (!m_clock.isEmpty())
        giveAgain(m_clock);
}

// So were the answers in line.
void Course::giveAnswersAgain()
{
    const QStringList answers = m_answers.commands();
    for (const QString &answer : answers)
        giveAgain(answer);
}

void Course::giveAgain(const QString &command)
{
    if (!m_till->tell(command))
        throw std::runtime_error(m_till->complaint().toStdString());
}

void Course::noteKill()
{
    noteEnd(true);
    if (m_outcome.books.ends.back().signal != SIGKILL)
        throw std::runtime_error("the till ended before it was killed");
    startTillAgain();
}

void Course::noteEnd(bool byUs)
{
    m_outcome.books.ends.push_back(m_till->end(byUs));
}

std::optional<Json> Course::tell(const QString &command)
{
    if (const auto object = m_till->tell(command))
        return object;
    m_till->awaitEnd();
    if (hasEndedByTrouble())
        return std::nullopt;
    noteEnd(false);
    const QString complaint = m_till->complaint();
    const TillEnd end = m_outcome.books.ends.back();
    if (end.signal != 0 || end.status != cannotDo)
        throw std::runtime_error(
            u"at \"%1\" the till ended by signal %2, status %3: %4"_s.arg(command)
                .arg(end.signal)
                .arg(end.status)
                .arg(complaint)
                .toStdString());
    m_outcome.skipped.append(complaint);
    startTillAgain();
    giveAnswersAgain();
    return std::nullopt;
}

Json Course::openDocument()
{
    const auto object = tell(u"show"_s);
    return object ? openDocumentOf(*object) : Json();
}

void Course::closeOpenDocument()
{
    for (const QString &command : {u"close"_s, u"total"_s, u"close"_s, u"cancel"_s})
        if (!openDocument().is_null())
            tell(command);
}

void Course::deliverAll()
{
    for (int pass = 0; pass < greatestDeliveries; ++pass)
        if (!undeliveredMessages(m_premises.state()).isEmpty())
            tell(u"deliver"_s);
}

Outcome Course::finish()
{
    closeOpenDocument();
    m_service.startAgain();
    m_service.orderFault("clear");
    // What could not be ended while the service was away.
    closeOpenDocument();
    deliverAll();
    m_till->finish();
    noteEnd(false);
    readStateFolder(m_premises.state(), m_outcome.books);
    readService(m_service, m_outcome.books);
    return std::move(m_outcome);
}

} // namespace restart

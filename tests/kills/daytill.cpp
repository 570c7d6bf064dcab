// The till of a day, and how it is killed.

#include "tests/kills/day.h"
#include "tests/kills/laws.h"
#include "tests/restart/effect.h"

#include <QDir>

#include <csignal>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using restart::Manner;

constexpr int saleType = 1;
constexpr int cannotDo = 2; // status of a till that refuses a command; it ends then
// In percent: how often a cashier does something else with what a killed till has left.
constexpr quint32 cancelsInstead = 30;
constexpr quint32 givesPointsUp = 25;
// How often a kill strikes the last command, which ends the document.
constexpr quint32 strikesEnd = 50;

Json openDocumentOf(const Json &object)
{
    const Json &document = object.at("document");
    return !document.is_null() && document.at("state") == "open" ? document : Json();
}

bool isAnswer(const QString &command)
{
    return command.startsWith(u"answer ");
}

restart::Command asCommand(const QString &text)
{
    return {0, text, text.split(u' ')};
}

bool asks(const QString &command)
{
    static const QStringList asking{u"card"_s, u"total"_s, u"points"_s, u"close"_s, u"cancel"_s};
    return asking.contains(command.section(u' ', 0, 0));
}

bool isExchange(Manner manner)
{
    return manner == Manner::Asked || manner == Manner::Acted || manner == Manner::Answered;
}

// Answers are given together with the command that they are for. Where an exchange is struck there
// must be one.
qsizetype placeOf(const Strike &strike, const QStringList &commands)
{
    const qsizetype last = commands.size() - 1;
    if (strike.place % 100 < strikesEnd)
        return last;
    qsizetype place = strike.place % commands.size();
    while (isAnswer(commands.at(place)) || (isExchange(strike.manner) && !asks(commands.at(place))))
        ++place;
    return place;
}

} // namespace

void Day::perform(const QStringList &commands, const std::optional<Strike> &strike)
{
    const qsizetype struck = strike ? placeOf(*strike, commands) : -1;
    for (qsizetype place = 0; place < commands.size(); ++place) {
        const QString &command = commands.at(place);
        if (place == struck)
            killTillAt(command, *strike);
        else
            give(command);
        if (isAnswer(command))
            m_answers.append(command);
        else
            m_answers.clear();
    }
}

void Day::startTill()
{
    m_till = std::make_unique<restart::TillProcess>(m_premises, m_tillsMachine.environment());
}

void Day::restartTill()
{
    m_till->awaitEnd();
    startTill();
}

std::optional<Json> Day::tell(const QString &command)
{
    m_witness.nextStep();
    if (const auto object = m_till->tell(command))
        return object;
    m_till->awaitEnd();
    const auto end = m_till->end(false);
    m_ends.push_back(end);
    if (end.signal != 0 || end.status != cannotDo)
        throw std::runtime_error(
            u"at \"%1\" the till ended by signal %2, status %3: %4"_s.arg(command)
                .arg(end.signal)
                .arg(end.status)
                .arg(m_till->complaint())
                .toStdString());
    startTill();
    return std::nullopt;
}

void Day::give(const QString &command)
{
    if (const auto object = tell(command))
        note(*object);
    else
        m_document = openDocument();
}

void Day::note(const Json &object)
{
    m_document = openDocumentOf(object);
    const Json &document = object.at("document");
    if (document.is_null() || !m_document.is_null())
        return;
    const QString number = QString::fromStdString(document.at("number"));
    const bool isSale = document.at("type") == saleType;
    const bool isClosed = document.at("state") == "closed";
    if (m_acknowledged.contains(number) || m_takenBack.contains(number))
        return;
    (isClosed ? m_acknowledged : m_takenBack).insert(number);
    ++(!isClosed     ? m_report.tally.cancelled
            : isSale ? m_report.tally.sales
                     : m_report.tally.returns);
}

void Day::killTillAt(const QString &command, const Strike &strike)
{
    const bool isTold = feedUntilKilled(command, strike);
    m_ends.push_back(m_till->end(true));
    if (m_ends.back().signal != SIGKILL)
        throw std::runtime_error("the till ended before it was killed");
    if (m_wrong == Wrong::QueueDropped)
        QDir(m_premises.state() + u"/queue"_s).removeRecursively();
    restartTill();
    checkWhatWasAcknowledged();
    goOn(command, isTold);
}

// A moment that does not come in the course of the command: at the latest it is killed behind it.
bool Day::feedUntilKilled(const QString &command, const Strike &strike)
{
    orderStrike(strike, [till = m_till.get()] { till->strikeDead(); });
    m_witness.nextStep();
    const auto object = m_till->tell(command);
    forgetStrike();
    m_till->kill();
    countKill(Victim::Till, object ? Manner::After : strike.manner);
    if (object)
        note(*object);
    return object.has_value();
}

// The cashier looks at the till, and gives the command again where it is still due.
void Day::goOn(const QString &command, bool isTold)
{
    const Json before = m_document;
    const Json now = openDocument();
    const bool isDone = isTold || restart::hasWorked(asCommand(command), before, now);
    m_document = now;
    if (isDone)
        return;
    if (command.startsWith(u"points") && m_dice.falls(givesPointsUp))
        return;
    if (command == u"close" && m_dice.falls(cancelsInstead))
        return give(u"cancel"_s);
    for (const QString &answer : m_answers)
        tell(answer);
    give(command);
}

Json Day::openDocument()
{
    const auto object = tell(u"show"_s);
    return object ? openDocumentOf(*object) : Json();
}

// What cannot be closed, because the service refuses it, is calculated anew or given up; where it
// cannot be given up either, since it is queued, it is delivered first.
void Day::closeOpenDocument()
{
    m_document = openDocument();
    for (const QString &command :
        {u"close"_s, u"total"_s, u"close"_s, u"cancel"_s, u"deliver"_s, u"close"_s})
        if (!m_document.is_null() && (command != u"total" || m_document.at("type") == saleType))
            give(command);
    if (!m_document.is_null())
        throw std::runtime_error("a document can be neither closed nor cancelled");
}

void Day::countKill(Victim victim, Manner manner)
{
    ++(victim == Victim::Till ? m_report.tally.tillsKilled
                              : m_report.tally.deliverersKilled)[manner];
}

// In the middle of a day the books need not be the same, and nothing may be missing all the same.
void Day::checkWhatWasAcknowledged()
{
    Evidence found;
    found.acknowledged = m_acknowledged;
    found.queue = queueBook(m_premises.state());
    restart::readStateFolder(m_premises.state(), found.books);
    found.books.transactions = m_service.get(u"transactions"_s);
    for (const QString &sentence : laws::acknowledgedIsKept(found))
        m_report.findings.push_back(
            {QString::fromLatin1(laws::all.front().name), u"after a kill: "_s + sentence});
}

} // namespace kills

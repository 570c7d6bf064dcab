#include "tests/faults/stage.h"

#include "tests/faults/damage.h"

#include <QDateTime>
#include <QFile>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

constexpr qint64 secondsOfAnHour = 3600;
const QString otherZone = u"Pacific/Auckland"_s;

restart::Scenario scenario()
{
    return {u"faults"_s, QStringLiteral(FAULTS_SOURCE_FOLDER "/tests/faults"), {}};
}

bool isOpen(const Json &document)
{
    return !document.is_null() && document.at("state") == "open";
}

QString clockCommand(const QDateTime &time)
{
    return u"clock "_s + time.toString(Qt::ISODate);
}

} // namespace

Stage::Stage(bool tls)
    : m_premises(scenario())
    , m_service(m_premises)
    , m_machine(m_premises.state())
    , m_front(std::make_unique<Front>(m_premises.servicePort(), tls ? &m_certificates : nullptr))
{
    m_premises.setLoyaltyPort(m_front->port());
    m_machine.control().servicePort = m_front->port();
    m_machine.set("TZ", u"Europe/Moscow"_s);
    const QString url
        = u"%1://%2:%3/"_s.arg(tls ? u"https"_s : u"http"_s, QLatin1StringView(serviceName))
              .arg(m_front->port());
    configure("[KorvelLoyaltyOnline]\nurl=" + url.toUtf8()
        + "\n[RestClient]\ncaFile=" + m_certificates.authorityFile().toUtf8() + '\n');
}

void Stage::configure(const QByteArray &settings) const
{
    QFile file(m_premises.settings() + u".d/30-faults.ini");
    if (!file.open(QIODevice::Append) || file.write(settings) != settings.size())
        throw std::runtime_error("cannot write " + file.fileName().toStdString());
}

void Stage::startTill()
{
    m_till = std::make_unique<restart::TillProcess>(m_premises, m_machine.environment());
}

void Stage::endTill()
{
    m_till->finish();
    m_ends.push_back(m_till->end(false));
    m_till.reset();
}

void Stage::noteEnd()
{
    m_till->awaitEnd();
    const restart::TillEnd end = m_till->end(false);
    m_complaint
        = u"signal %1, status %2: %3"_s.arg(end.signal).arg(end.status).arg(m_till->complaint());
    // A till may stop at a fault, but only in order.
    if (end.signal != 0)
        m_ends.push_back(end);
    m_till.reset();
}

std::optional<Json> Stage::tell(const QString &command)
{
    const int before = m_machine.control().exchanges;
    auto object = m_till->tell(command);
    if (!object) {
        noteEnd();
        // None of the commands asks more than once.
        m_exchanges += std::min(m_machine.control().exchanges - before, 1);
        return std::nullopt;
    }
    const Json &trace = object->at("trace");
    m_exchanges += static_cast<int>(std::count(trace.begin(), trace.end(), "post"));
    return object;
}

Json Stage::must(const QString &command)
{
    if (auto object = tell(command))
        return *object;
    throw std::runtime_error(u"%1: %2"_s.arg(command, m_complaint).toStdString());
}

void Stage::killedIn(const QString &command)
{
    m_front->callInsteadOfAnswering([till = m_till.get()] { till->strikeDead(); });
    if (m_till->tell(command))
        throw std::runtime_error("the till was not killed");
    ++m_exchanges;
    m_till->awaitEnd();
    m_till.reset();
}

Json Stage::openDocument()
{
    const Json document = must(u"show"_s).at("document");
    return isOpen(document) ? document : Json();
}

void Stage::strike(Kind kind)
{
    if (damagesFiles(kind))
        return damage(kind);
    if (turnClock(kind))
        m_isTurned = true;
    else if (!m_machine.order(kind, m_refusingPort.port(), m_blackHole.port()))
        m_front->strike(kind);
}

bool Stage::turnClock(Kind kind)
{
    const QDateTime now = QDateTime::currentDateTime();
    switch (kind) {
    case Kind::ZoneChanged:
        m_machine.set("TZ", otherZone);
        return true;
    case Kind::ClockBack:
        must(clockCommand(now.addSecs(-secondsOfAnHour)));
        return true;
    case Kind::ClockForward:
        must(clockCommand(now.addYears(1)));
        return true;
    default:
        return false;
    }
}

void Stage::heal()
{
    m_front->strike(Kind::None);
    m_machine.heal();
    if (!m_damaged.isEmpty() && contentsOf(damagedPath()) == m_damaged)
        replaceContents(damagedPath(), m_undamaged);
    m_damaged.clear();
}

bool Stage::isMet() const
{
    return m_isTurned || m_front->struck() > 0 || m_machine.control().met > 0;
}

QString Stage::damagedPath() const
{
    return m_premises.state() + u'/' + m_damagedFile;
}

void Stage::damage(Kind kind)
{
    m_undamaged = contentsOf(damagedPath());
    damageFile(damagedPath(), kind);
    m_damaged = contentsOf(damagedPath());
    m_isTurned = true;
}

QStringList Stage::undelivered() const
{
    return restart::undeliveredMessages(m_premises.state());
}

restart::Books Stage::books() const
{
    restart::Books books;
    books.ends = m_ends;
    restart::readStateFolder(m_premises.state(), books);
    restart::readService(m_service, books);
    return books;
}

Json Stage::transactions() const
{
    return m_service.get(u"transactions"_s);
}

} // namespace faults

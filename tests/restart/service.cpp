#include "tests/restart/service.h"

#include "tests/emulator/support/httpclient.h"

#include <functional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

constexpr int statusOk = 200;
// Connections that a fault still refuses are used up by asking again.
constexpr int greatestTries = 20;

QByteArray answerTo(const QString &url, const std::function<emulator::HttpOutcome()> &exchange)
{
    for (int tries = 0; tries < greatestTries; ++tries) {
        const auto outcome = exchange();
        if (outcome.curlCode == 0 && outcome.status == statusOk)
            return outcome.body;
    }
    throw std::runtime_error("the service does not answer at " + url.toStdString());
}

} // namespace

Service::Service(const Premises &premises)
    : m_premises(premises)
{
    start();
}

void Service::start()
{
    m_process = std::make_unique<emulator::ServiceProcess>(
        QStringList{u"--listen"_s, u"127.0.0.1:%1"_s.arg(m_premises.servicePort()), u"--data"_s,
            m_premises.serviceData(), u"--state"_s, m_premises.serviceState()});
}

void Service::awaitStop()
{
    if (m_process->waitForEnd() != 0)
        throw std::runtime_error("the service did not stop in order");
    m_process.reset();
}

void Service::startAgain()
{
    if (!m_process)
        start();
}

nlohmann::json Service::get(const QString &path) const
{
    const QString url = m_process->url() + u"api/"_s + path;
    const QByteArray body = answerTo(url, [&url] { return emulator::httpGet(url); });
    return nlohmann::json::parse(body.toStdString());
}

void Service::orderFault(const QByteArray &words) const
{
    const QString url = m_process->api("faults");
    answerTo(url, [&] { return emulator::httpPost(url, words); });
}

void Service::reset() const
{
    const QString url = m_process->api("reset");
    answerTo(url, [&] { return emulator::httpPost(url, {}); });
}

} // namespace restart

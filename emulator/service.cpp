#include "emulator/service.h"

#include "emulator/http/status.h"
#include "emulator/soap/description.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

void orderAll(const std::vector<FaultCommand> &commands, FaultPlan &plan)
{
    for (const FaultCommand &command : commands) {
        if (const Fault *fault = std::get_if<Fault>(&command))
            plan.add(*fault);
        else if (const RefuseConnections *refusal = std::get_if<RefuseConnections>(&command))
            plan.refuse(*refusal);
    }
}

} // namespace

Service::Service(ServiceSettings settings, const Clock &clock)
    : m_authorisation(settings.authorisation)
    , m_listeningHost(settings.listeningHost)
    , m_database(settings.statePath)
    , m_desk(std::move(settings.data), m_database, clock)
    , m_soap(m_desk, m_faults, m_log, clock)
    , m_api(m_desk, m_faults, m_log)
{
    orderAll(settings.faults, m_faults);
}

bool Service::refusesConnection()
{
    return m_faults.takeRefusal();
}

HttpReply Service::answer(const HttpRequest &request)
{
    try {
        return route(request);
    } catch (const std::exception &error) {
        return textReply(httpstatus::serverError, QString::fromUtf8(error.what()));
    }
}

HttpReply Service::route(const HttpRequest &request)
{
    const QUrl target = QUrl::fromEncoded(request.target.toUtf8());
    if (const auto description = describeService(request))
        return m_authorisation.admits(request) ? *description : unauthorisedReply();
    if (target.path() == u"/")
        return answerSoap(request);
    if (target.path().startsWith(u"/api/"))
        return answerApi(request, target);
    return textReply(
        httpstatus::notFound, u"there is nothing here; the service is at /, its API under /api/"_s);
}

HttpReply Service::answerSoap(const HttpRequest &request)
{
    if (request.method != u"POST")
        return textReply(httpstatus::wrongMethod, u"the service takes only POST"_s);
    if (!m_authorisation.admits(request))
        return unauthorisedReply();
    return m_soap.answer(request.body);
}

HttpReply Service::answerApi(const HttpRequest &request, const QUrl &target)
{
    if (!isOwnHost(request.host, m_listeningHost) || !isOwnOrigin(request))
        return textReply(httpstatus::forbidden,
            u"the API is only for this machine's own names, not for \"%1\""_s.arg(request.host));
    if (!request.fromLoopback && !m_authorisation.admits(request))
        return unauthorisedReply();
    const QString prefix = u"/api/"_s;
    return m_api.answer(request, target.path().mid(prefix.size()), QUrlQuery(target));
}

} // namespace emulator

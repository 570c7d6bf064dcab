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
        else if (const ConnectionFault *ofConnection = std::get_if<ConnectionFault>(&command))
            plan.add(*ofConnection);
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

Reception Service::receive()
{
    const auto fault = m_faults.takeForConnection();
    if (!fault)
        return {};
    switch (fault->kind) {
    case ConnectionFaultKind::Refuse:
        return {Reception::Kind::Refuse};
    case ConnectionFaultKind::Silence:
        return {Reception::Kind::Silence};
    case ConnectionFaultKind::Stall:
        return {Reception::Kind::Serve, std::chrono::milliseconds(fault->milliseconds)};
    }
    return {};
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
    if (target.path() == u"/console")
        return answerConsole(request);
    return textReply(httpstatus::notFound,
        u"there is nothing here; the service is at /, its API under /api/, its page at /console"_s);
}

HttpReply Service::answerSoap(const HttpRequest &request)
{
    if (request.method != u"POST")
        return textReply(httpstatus::wrongMethod, u"the service takes only POST"_s);
    if (!m_authorisation.admits(request))
        return unauthorisedReply();
    return m_soap.answer(request.body);
}

std::optional<HttpReply> Service::refusal(const HttpRequest &request) const
{
    if (!isOwnHost(request.host, m_listeningHost) || !isOwnOrigin(request))
        return textReply(httpstatus::forbidden,
            u"this is only for this machine's own names, not for \"%1\""_s.arg(request.host));
    if (!request.fromLoopback && !m_authorisation.admits(request))
        return unauthorisedReply();
    return {};
}

HttpReply Service::answerApi(const HttpRequest &request, const QUrl &target)
{
    if (const auto reply = refusal(request))
        return *reply;
    // A script has no page to read the token from, and no foreign page can pose as one.
    const bool changes = request.method != u"GET";
    if (changes && request.fromPage && request.token != m_console.token())
        return textReply(httpstatus::forbidden,
            u"a page's changes need the token that the console was given; load it again"_s);
    const QString prefix = u"/api/"_s;
    return m_api.answer(request, target.path().mid(prefix.size()), QUrlQuery(target));
}

HttpReply Service::answerConsole(const HttpRequest &request) const
{
    if (request.method != u"GET")
        return textReply(httpstatus::wrongMethod, u"the console is read with GET"_s);
    return refusal(request).value_or(m_console.page());
}

} // namespace emulator

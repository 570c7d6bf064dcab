#pragma once

#include "emulator/api/api.h"
#include "emulator/console/console.h"
#include "emulator/http/guard.h"
#include "emulator/soap/endpoint.h"

namespace emulator {

struct ServiceSettings
{
    ServiceData data;
    QString statePath; ///< empty: in memory
    Authorisation authorisation;
    QString listeningHost; ///< the name or address to listen on, without the port
    std::vector<FaultCommand> faults; ///< ordered from the start
};

/// The whole service behind its HTTP server: SOAP on "/" and what describes it to toolkits, the API
/// under "/api/", a page for people at "/console". Never throws once it is made; making it throws
/// BooksError. One thread.
class Service
{
public:
    Service(ServiceSettings settings, const Clock &clock);

    HttpReply answer(const HttpRequest &request);

    /// What the connection that has just come is to meet.
    Reception receive();

private:
    HttpReply route(const HttpRequest &request);
    HttpReply answerSoap(const HttpRequest &request);
    std::optional<HttpReply> refusal(const HttpRequest &request) const;
    HttpReply answerApi(const HttpRequest &request, const QUrl &target);
    HttpReply answerConsole(const HttpRequest &request) const;

    const Authorisation m_authorisation;
    const QString m_listeningHost;
    Database m_database;
    Desk m_desk;
    FaultPlan m_faults;
    ExchangeLog m_log;
    SoapEndpoint m_soap;
    Api m_api;
    const Console m_console;
};

} // namespace emulator

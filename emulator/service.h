#pragma once

#include "emulator/api/api.h"
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

/// The whole service behind its HTTP server: SOAP on "/" and what describes it, the API under
/// "/api/". Never throws once it is made; making it throws BooksError. One thread.
class Service
{
public:
    Service(ServiceSettings settings, const Clock &clock);

    HttpReply answer(const HttpRequest &request);

    /// Whether the connection that has just come is to be closed unread.
    bool refusesConnection();

private:
    HttpReply route(const HttpRequest &request);
    HttpReply answerSoap(const HttpRequest &request);
    HttpReply answerApi(const HttpRequest &request, const QUrl &target);

    const Authorisation m_authorisation;
    const QString m_listeningHost;
    Database m_database;
    Desk m_desk;
    FaultPlan m_faults;
    ExchangeLog m_log;
    SoapEndpoint m_soap;
    Api m_api;
};

} // namespace emulator

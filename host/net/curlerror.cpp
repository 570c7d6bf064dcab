#include "host/net/curlerror.h"

#include "host/net/restclient.h"

int restClientErrorOf(CURLcode result)
{
    switch (result) {
    case CURLE_OK:
        return RestClient::None;
    case CURLE_COULDNT_CONNECT:
        return RestClient::ConnectionRefused;
    case CURLE_COULDNT_RESOLVE_HOST:
    case CURLE_COULDNT_RESOLVE_PROXY:
        return RestClient::NameNotResolved;
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CERTPROBLEM:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
        return RestClient::TlsFailed;
    case CURLE_OPERATION_TIMEDOUT:
        return RestClient::TimedOut;
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
        return RestClient::AnswerCut;
    // libcurl's word for a single line of a head that outgrows its own buffer.
    case CURLE_OUT_OF_MEMORY:
        return RestClient::AnswerTooLarge;
    default:
        return RestClient::ExchangeFailed;
    }
}

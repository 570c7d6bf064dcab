#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"
#include "host/framework/tr.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QUrl>

namespace Log4Qt {
class Logger;
}

/// One HTTP POST. `MockFactory<RestClient>::create()`: a fresh one for each exchange.
///
/// Blocks the caller until the answer is complete or the limit has passed, name look-up included.
/// Every exchange has a connection of its own, and the body goes on it at most once; redirects are
/// not followed; certificates are always verified; no proxy comes from the environment.
/// Settings, read at each exchange: "RestClient:caFile", "clientCert", "clientKey", "proxy",
/// "maxAnswerBytes", "breakerFailures" and "breakerSeconds". To be used from the host's thread
/// only.
class POSHOST_EXPORT RestClient
{
public:
    /// Why an exchange failed. HTTP statuses from 300 up stand for themselves.
    enum Error : int
    {
        None = 0,
        BadAddress = 1, ///< not http or https, or no URL at all
        ConnectionRefused = 2, ///< or the server cannot be reached at all
        NameNotResolved = 3,
        TlsFailed = 4, ///< no trust in the server's certificate, or none of ours to show
        TimedOut = 5, ///< the server may have received the request
        AnswerCut = 6, ///< closed before the answer was complete; it may have been received
        AnswerTooLarge = 7, ///< a body beyond "RestClient:maxAnswerBytes" or an endless head
        BreakerOpen = 8, ///< not tried: too many exchanges in a row had failed
        ExchangeFailed = 9, ///< anything else
    };

    RestClient();
    virtual ~RestClient();
    Q_DISABLE_COPY_MOVE(RestClient)

    /// Limit for the whole exchange in seconds; 0 or less: the host's default of 15.
    virtual void setTimeout(int seconds);
    /// The exchange is logged there, without the value of "Authorization". Not owned; may be null.
    virtual void setLogger(const Log4Qt::Logger *logger);
    /// Does the exchange. Reports failure by `errorCode`, never by throwing.
    /// @param headers control characters are left out, so that no value can begin another header;
    ///                so are "Content-Length", "Transfer-Encoding" and "Expect".
    virtual void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers);
    /// 0 after a 2xx answer, otherwise one of `Error` or the HTTP status.
    [[nodiscard]] virtual int errorCode() const;
    /// What a cashier can read; empty when there was no error.
    [[nodiscard]] virtual tr::Tr errorMessage() const;
    /// Body of a 2xx answer; empty when the exchange failed.
    [[nodiscard]] virtual QByteArray responseBody() const;
    /// Body of an answer that was no success: its status was 300 or above, or it was too large and
    /// is cut. At most "RestClient:maxAnswerBytes" bytes; empty when there was no such answer. For
    /// people who look for the reason; nothing in it counts as the service's word.
    [[nodiscard]] virtual QByteArray failedBody() const;
    /// The server's clock as its answer told it, UTC, whatever the answer's status; invalid where
    /// it told none.
    [[nodiscard]] virtual QDateTime answerDate() const;

protected:
    int m_timeoutSeconds = 0;
    const Log4Qt::Logger *m_logger = nullptr;
    int m_errorCode = None;
    tr::Tr m_errorMessage;
    QByteArray m_responseBody;
    QByteArray m_failedBody;
    QDateTime m_answerDate;

private:
    void log(const QUrl &url, qsizetype sent, const QString &detail, qint64 milliseconds) const;
};

extern template class POSHOST_EXPORT MockFactory<RestClient>;

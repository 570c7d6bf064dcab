#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/// What an answer means for the message that it answers.
struct Verdict
{
    enum class Outcome : int
    {
        Delivered,
        Refused, ///< for good
        TryAgain,
    };

    Outcome outcome = Outcome::TryAgain;
    QString text; ///< why, for people; empty: as the exchange itself reported it
    int code = 0; ///< the service's own code; 0: none beside that of the exchange
};

/// Judges an exchange by its error code (0: answered with 2xx, see `RestClient`) and the body of
/// the answer.
using VerdictFunction = std::function<Verdict(int errorCode, const QByteArray &body)>;

/// What one pass of delivery did.
struct DeliveryReport
{
    int delivered = 0;
    int refused = 0;
    int failed = 0; ///< attempts after which the message waits again
    int parked = 0; ///< messages that a person must look at now
    bool busy = false; ///< another process delivers just now; nothing was done
    bool stopped = false; ///< too many connections in a row failed; the rest was not tried
    /// The service does not accept the credentials that the messages carry; the rest was not tried.
    /// The messages need those that are configured now: "korvel-till queue reauthorise".
    bool unauthorised = false;
};

/// Is told after every message what a pass has done so far; false ends the pass there.
using DeliveryObserver = std::function<bool(const DeliveryReport &soFar)>;

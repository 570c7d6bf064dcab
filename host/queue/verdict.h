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
    bool busy = false; ///< another process delivers just now; nothing was done
    bool stopped = false; ///< too many connections in a row failed; the rest was not tried
};

#pragma once

#include <QDomDocument>
#include <QSet>

/// The service's return codes and what they mean to the till.
namespace korvelLoyaltyOnline {

/// "ReturnCode" of an answer.
struct ReturnCode
{
    int code = 0; ///< 0 when it could not be read
    bool isRead = false; ///< false when absent, no decimal integer, or one beyond 32 bits

    /// Read, and 0 or less.
    [[nodiscard]] bool isSuccess() const { return isRead && code < 1; }
};

/// The points on the card are not enough for what was asked: neither success nor failure of a sale.
inline constexpr int insufficientPointsCode = 81400;

/// What a return code that is reported as an error calls for.
enum class Verdict
{
    NoError, ///< code 0: nothing is thrown
    Refusal, ///< the cashier is told; the till stays online
    InternalError, ///< treated like a lost connection
};

[[nodiscard]] ReturnCode readReturnCode(const QDomDocument &response);

/// @param shownCodes codes that count as refusals besides those that always do.
[[nodiscard]] Verdict verdictOn(int code, const QSet<int> &shownCodes);

} // namespace korvelLoyaltyOnline

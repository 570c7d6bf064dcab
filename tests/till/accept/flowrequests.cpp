#include "tests/till/accept/flowrequests.h"

#include "tests/till/accept/message.h"

using namespace message;

namespace flowrequests {

bool any(const QByteArray &)
{
    return true;
}

bool isOfUnknownCard(const QByteArray &request)
{
    return valueOf(request, "CardNumber") == "2999";
}

bool isStale(const QByteArray &request)
{
    return valueOf(request, "Summ") == "1.00";
}

bool isCalculation(const QByteArray &request)
{
    return isSoft(request) && positions(request) == 3 && !isStale(request);
}

bool isRegistration(const QByteArray &request)
{
    return isFiscal(request) && positions(request) == 3;
}

bool repeatsFigures(const QByteArray &request)
{
    return isSoft(request) && positions(request) == 2 && valueOf(request, "Discount") != "0.00"
        && valueOf(request, "PaidByBonus") == valueOf(request, "SummDiscounted");
}

bool asksForTooMany(const QByteArray &request)
{
    return isSoft(request) && valueOf(request, "PaidByBonus").toDouble() > 900
        && valueOf(request, "PaidByBonus") != valueOf(request, "SummDiscounted");
}

bool asksForOne(const QByteArray &request)
{
    return isSoft(request) && valueOf(request, "PaidByBonus") == "1.00" && !isStale(request);
}

bool asksForCode(const QByteArray &request)
{
    return isSoft(request) && valueOf(request, "SendCode") == "1";
}

bool hasTwoCoupons(const QByteArray &request)
{
    return request.count("<Coupon>") == 2;
}

bool isReturnOfOne(const QByteArray &request)
{
    return isReturn(request) && valueOf(request, "Quantity") == "1.000" && positions(request) == 1;
}

bool isUnknownRollback(const QByteArray &request)
{
    constexpr qsizetype longest = 12;
    return isRollback(request) && valueOf(request, "TransactionID").size() > longest;
}

bool isKnownRollback(const QByteArray &request)
{
    return isRollback(request) && !isUnknownRollback(request);
}

} // namespace flowrequests

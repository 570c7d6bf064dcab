#include "client/returncode.h"

#include "client/names.h"
#include "common/host/services.h"

#include <algorithm>
#include <array>

namespace korvelLoyaltyOnline {

namespace {

/// Refusals by definition, whatever the configuration says.
constexpr std::array alwaysShownCodes = {80241, 80420, 81330, 83000, 89184};

bool isAlwaysShown(int code)
{
    return std::find(alwaysShownCodes.cbegin(), alwaysShownCodes.cend(), code)
        != alwaysShownCodes.cend();
}

} // namespace

ReturnCode readReturnCode(const QDomDocument &response)
{
    ReturnCode result;
    result.code = xmlutils::getValueByTag(response, wire::returnCode, 0).toInt(&result.isRead);
    return result;
}

Verdict verdictOn(int code, const QSet<int> &shownCodes)
{
    if (code == 0)
        return Verdict::NoError;
    return isAlwaysShown(code) || shownCodes.contains(code) ? Verdict::Refusal
                                                            : Verdict::InternalError;
}

} // namespace korvelLoyaltyOnline

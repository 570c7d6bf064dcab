#include "till/check/finding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::check {

Severity worst(const Findings &findings)
{
    const auto found = std::max_element(findings.cbegin(), findings.cend(),
        [](const Finding &left, const Finding &right) { return left.severity < right.severity; });
    return found == findings.cend() ? Severity::Ok : found->severity;
}

QString nameOf(Severity severity)
{
    switch (severity) {
    case Severity::Ok:
        return u"ok"_s;
    case Severity::Note:
        return u"note"_s;
    case Severity::Warning:
        return u"warning"_s;
    case Severity::Error:
        break;
    }
    return u"error"_s;
}

QString nameOf(Area area)
{
    switch (area) {
    case Area::Configuration:
        return u"configuration"_s;
    case Area::Machine:
        return u"machine"_s;
    case Area::Service:
        break;
    }
    return u"service"_s;
}

} // namespace till::check

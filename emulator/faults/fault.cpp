#include "emulator/faults/fault.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int longestWait = 600'000;
constexpr int leastStatus = 100;
constexpr int greatestStatus = 599;
constexpr int leastRedirection = 300;
constexpr int greatestRedirection = 399;
constexpr int greatestCode = 999'999;

constexpr auto milliseconds = u"milliseconds";

} // namespace

const std::array<KindOfFault, 14> kindsOfFault{
    KindOfFault{FaultKind::Delay, u"delay", milliseconds, 0, longestWait},
    KindOfFault{FaultKind::Drip, u"drip", milliseconds, 0, longestWait},
    KindOfFault{FaultKind::Half, u"half", nullptr, 0, 0},
    KindOfFault{FaultKind::Lose, u"lose", nullptr, 0, 0},
    KindOfFault{FaultKind::Swallow, u"swallow", nullptr, 0, 0},
    KindOfFault{FaultKind::Reset, u"reset", nullptr, 0, 0},
    KindOfFault{FaultKind::Empty, u"empty", nullptr, 0, 0},
    KindOfFault{FaultKind::NotXml, u"not-xml", nullptr, 0, 0},
    KindOfFault{FaultKind::WrongXml, u"wrong-xml", nullptr, 0, 0},
    KindOfFault{FaultKind::Huge, u"huge", nullptr, 0, 0},
    KindOfFault{FaultKind::Status, u"status", u"an HTTP status", leastStatus, greatestStatus},
    KindOfFault{
        FaultKind::Redirect, u"redirect", u"an HTTP status", leastRedirection, greatestRedirection},
    KindOfFault{FaultKind::Code, u"code", u"a return code", -greatestCode, greatestCode},
    KindOfFault{FaultKind::Unauthorised, u"unauthorised", nullptr, 0, 0},
};

QString faultName(FaultKind kind)
{
    return QString::fromUtf16(kindsOfFault.at(static_cast<std::size_t>(kind)).name);
}

QString faultName(ConnectionFaultKind kind)
{
    switch (kind) {
    case ConnectionFaultKind::Refuse:
        return u"refuse"_s;
    case ConnectionFaultKind::Silence:
        return u"silence"_s;
    case ConnectionFaultKind::Stall:
        return u"stall"_s;
    }
    return {};
}

bool actsBeforeStriking(FaultKind kind)
{
    return kind == FaultKind::Delay || kind == FaultKind::Drip || kind == FaultKind::Half
        || kind == FaultKind::Lose;
}

} // namespace emulator

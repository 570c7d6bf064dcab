#include "tests/faults/fault.h"

using namespace Qt::StringLiterals;

namespace faults {

const std::vector<Fault> &allFaults()
{
    using enum Kind;
    static const std::vector<Fault> all{
        {Refused, Group::Network, u"connection refused"_s},
        {NameUnknown, Group::Network, u"name unknown"_s},
        {Unreachable, Group::Network, u"unreachable"_s},
        {TlsWrongName, Group::Network, u"TLS: certificate for another name"_s},
        {TlsExpired, Group::Network, u"TLS: certificate expired"_s},
        {TlsUnknownAuthority, Group::Network, u"TLS: unknown authority"_s},
        {ClosedBeforeReading, Group::Network, u"closed before the request was read"_s},
        {ClosedAfterReading, Group::Network, u"closed after the request was read"_s},
        {AnswerLost, Group::Network, u"done by the service, answer lost"_s},
        {Reset, Group::Network, u"done by the service, connection reset"_s},
        {CutHead, Group::Network, u"answer cut in its head"_s},
        {CutBody, Group::Network, u"answer cut in its body"_s},
        {DripHead, Group::Network, u"answer's head drips"_s},
        {DripBody, Group::Network, u"answer's body drips"_s},
        {Silent, Group::Network, u"no answer"_s},
        {MovedForGood, Group::Network, u"status 301"_s},
        {Found, Group::Network, u"status 302"_s},
        {MovedForNow, Group::Network, u"status 307"_s},
        {Unauthorised, Group::Network, u"status 401"_s},
        {Forbidden, Group::Network, u"status 403"_s},
        {NotFound, Group::Network, u"status 404"_s},
        {ServerFault, Group::Network, u"status 500 with a fault"_s},
        {Unavailable, Group::Network, u"status 503"_s},
        {OtherAnswer, Group::Network, u"answer to another request"_s},
        {TwiceAnnounced, Group::Network, u"twice as much as announced"_s},
        {Empty, Group::Content, u"empty"_s},
        {HtmlPage, Group::Content, u"page in HTML"_s},
        {OtherXml, Group::Content, u"other XML"_s},
        {WrongEncoding, Group::Content, u"wrong encoding"_s},
        {MissingElements, Group::Content, u"elements missing"_s},
        {DoubledElements, Group::Content, u"elements doubled"_s},
        {AbsurdNumbers, Group::Content, u"absurd numbers"_s},
        {TenThousandPositions, Group::Content, u"10 000 positions"_s},
        {FiveMegabytes, Group::Content, u"text of 5 MB"_s},
        {DiskFull, Group::Disk, u"disk full"_s},
        {DiskReadOnly, Group::Disk, u"disk read-only"_s},
        {DiskGone, Group::Disk, u"disk gone"_s},
        {DiskSlow, Group::Disk, u"disk slow"_s},
        {FileTruncated, Group::Disk, u"file cut short"_s},
        {FileGarbage, Group::Disk, u"file is garbage"_s},
        {FileNewer, Group::Disk, u"file of a newer version"_s},
        {ClockBack, Group::Clock, u"clock back an hour"_s},
        {ClockForward, Group::Clock, u"clock forward a year"_s},
        {ZoneChanged, Group::Clock, u"another time zone"_s},
    };
    return all;
}

QString titleOf(Group group)
{
    switch (group) {
    case Group::Network:
        return u"Network"_s;
    case Group::Content:
        return u"Answer"_s;
    case Group::Disk:
        return u"Disk"_s;
    case Group::Clock:
        break;
    }
    return u"Clock"_s;
}

bool needsFreshTill(Kind kind)
{
    return kind == Kind::NameUnknown || kind == Kind::ZoneChanged || needsTls(kind)
        || damagesFiles(kind);
}

bool needsTls(Kind kind)
{
    return kind == Kind::TlsWrongName || kind == Kind::TlsExpired
        || kind == Kind::TlsUnknownAuthority;
}

bool damagesFiles(Kind kind)
{
    return kind == Kind::FileTruncated || kind == Kind::FileGarbage || kind == Kind::FileNewer;
}

} // namespace faults

#include "till/check/listing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till;
using namespace till::check;

namespace {

const Findings some{
    {Severity::Warning, Area::Configuration, {u"till.ini"_s, 7, u"Queue:keepDays"_s},
        {u"checkKeyUnknown"_s, u"такого ключа нет, значение ни на что не влияет"_s},
        {u"checkRemoveOne"_s, u"уберите лишнюю строку"_s}},
    {Severity::Ok, Area::Configuration, {{}, 0, u"Till:digitalKeyboard"_s},
        tr::Tr(u"checkDefault"_s, u"не задано, действует: %1"_s).arg(u"false"_s), {}},
    {Severity::Ok, Area::Configuration, {{}, 0, u"Till:state"_s},
        tr::Tr(u"checkDefault"_s, u"не задано, действует: %1"_s).arg(u"x"_s), {}},
    {Severity::Note, Area::Service, {},
        {u"checkServiceSkipped"_s, u"сервис не проверен: --no-service"_s}, {}}};

TEST(Listing, TellsAreaByAreaWhatToDo)
{
    EXPECT_EQ(listing(some, Paint(false)),
        u"Settings\n"
        u"  warning        till.ini:7 Queue:keepDays: there is no such key, the value changes "
        u"nothing\n"
        u"                 → take one of the lines out\n"
        u"                 Queue:keepDays – delivered messages are deleted after so many days\n"
        u"  ok             [Till] by default: digitalKeyboard=false, "
        u"state=(~/.local/state/korvel-till)\n"
        u"Machine\n"
        u"Service\n"
        u"  note           the service was not asked: --no-service\n"
        u"In all: warning\n"_s);
}

TEST(Listing, ExplainsOnlyWhatIsWrong)
{
    const Findings found{{Severity::Ok, Area::Configuration, {u"a.ini"_s, 2, u"Queue:keepDays"_s},
        tr::Tr(u"checkOverlaid"_s, u"действует вместо %1:%2"_s).arg(u"till.ini"_s).arg(u"7"_s),
        {}}};
    EXPECT_TRUE(listing(found, Paint(false))
                    .startsWith(u"Settings\n"
                                u"  ok             a.ini:2 Queue:keepDays: counts in place of "
                                u"till.ini:7\n"
                                u"Machine\n"_s));
}

TEST(Listing, IsColouredOnATerminalOnly)
{
    EXPECT_TRUE(listing(some, Paint(true)).contains(u"\033[33mwarning"_s));
    EXPECT_FALSE(listing(some, Paint(false)).contains(u'\033'));
}

TEST(Listing, LetsNothingFromOutsideCommandTheTerminal)
{
    const Findings found{{Severity::Error, Area::Service, {},
        tr::Tr(tr::undefined, u"a\033[2Jb\nc"_s), tr::Tr(tr::undefined, u"d\033e"_s)}};
    const QString text = listing(found, Paint(false));
    EXPECT_FALSE(text.contains(u'\033'));
    EXPECT_EQ(text.count(u'\n'), 6);
}

TEST(Listing, ForProgramsHasTheseMembers)
{
    const Json object = findingsObject(some);
    EXPECT_EQ(object["worst"], "warning");
    EXPECT_EQ(object["findings"].size(), 4U);
    EXPECT_EQ(object["findings"][0], Json::parse(R"({"severity": "warning",
        "area": "configuration", "file": "till.ini", "line": 7, "key": "Queue:keepDays",
        "id": "checkKeyUnknown", "message": "такого ключа нет, значение ни на что не влияет",
        "remedy": "уберите лишнюю строку"})"));
    EXPECT_EQ(object["findings"][3], Json::parse(R"({"severity": "note", "area": "service",
        "file": null, "line": null, "key": null, "id": "checkServiceSkipped",
        "message": "сервис не проверен: --no-service", "remedy": null})"));
    EXPECT_EQ(findingsObject({})["worst"], "ok");
}

TEST(Listing, HasAWordForEachSeverity)
{
    const auto of = [](Severity severity) { return worst({Finding{severity, {}, {}, {}, {}}}); };
    for (const Severity severity :
        {Severity::Ok, Severity::Note, Severity::Warning, Severity::Error})
        EXPECT_EQ(of(severity), severity);
    EXPECT_EQ(nameOf(Severity::Error), u"error"_s);
    EXPECT_EQ(nameOf(Area::Machine), u"machine"_s);
}

} // namespace

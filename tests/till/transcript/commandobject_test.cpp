// The object of a command, member by member.

#include "till/transcript/commandobject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class CommandObjectTest : public testing::Test
{
public:
    std::string member(const char *name) const
    {
        return till::commandObject(command).at(name).dump();
    }

    till::ExecutedCommand command;
};

TEST_F(CommandObjectTest, ACommandOfWhichNothingCame)
{
    command.line = 4;
    command.text = u"total"_s;
    EXPECT_EQ(till::commandObject(command).dump(),
        R"({"line":4,"command":"total","result":null,"refusal":null,"dialogs":[],"events":[],)"
        R"("printed":[],"notices":[],"trace":[],"document":null})");
}

TEST_F(CommandObjectTest, ResultsAreBooleansOrNumbers)
{
    command.outcome.result = true;
    EXPECT_EQ(member("result"), "true");
    command.outcome.result = 1;
    EXPECT_EQ(member("result"), "1");
}

TEST_F(CommandObjectTest, ARefusalHasIdTextAndFlag)
{
    command.outcome.refusal = till::Refusal{tr::Tr(u"id"_s, u"Код %1"_s).arg(u"5"_s), true};
    EXPECT_EQ(member("refusal"), R"({"id":"id","text":"Код 5","flag":true})");
}

TEST_F(CommandObjectTest, DialogsOfEachKind)
{
    using Kind = till::RecordedDialog::Kind;
    command.recording.dialogs = {{Kind::Message, tr::Tr(u"m"_s, u"M"_s), u"ok"_s},
        {Kind::Choice, tr::Tr(u"c"_s, u"C"_s), u"cancel"_s},
        {Kind::Text, tr::Tr(u"t"_s, u"T"_s), u"1234"_s}};
    EXPECT_EQ(member("dialogs"),
        R"([{"kind":"message","id":"m","text":"M","answer":"ok"},)"
        R"({"kind":"choice","id":"c","text":"C","answer":"cancel"},)"
        R"({"kind":"text","id":"t","text":"T","answer":"1234"}])");
}

TEST_F(CommandObjectTest, EventsWithTheirArguments)
{
    command.recording.events = {{72, {{u"message"_s, tr::Tr(u"id"_s, u"Обращение"_s)}}}, {73, {}}};
    EXPECT_EQ(member("events"),
        R"([{"code":72,"arguments":{"message":"Обращение"}},{"code":73,"arguments":{}}])");
}

TEST_F(CommandObjectTest, WhatThePluginPrinted)
{
    command.recording.printed = {{u"coupon"_s, u""_s, {{u"Number"_s, u"990"_s}}, -1}};
    EXPECT_EQ(member("printed"),
        R"([{"template":"coupon","text":"","data":{"Number":"990"},"copies":-1}])");
}

TEST_F(CommandObjectTest, NoticesTraceAndDocument)
{
    command.outcome.notices = {tr::Tr(u"id"_s, u"Ждут: %1"_s).arg(u"2"_s)};
    command.recording.trace = QStringList{u"event 72"_s, u"post"_s};
    command.document = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, u"17"_s);
    EXPECT_EQ(member("notices"), R"(["Ждут: 2"])");
    EXPECT_EQ(member("trace"), R"(["event 72","post"])");
    EXPECT_EQ(till::commandObject(command)["document"]["number"], "17");
}

} // namespace

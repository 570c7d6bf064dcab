// The story of a sale in plain words.

#include "tests/till/support/scriptfixture.h"
#include "till/console/narrator.h"

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

class NarratorTest : public ScriptFixture
{
public:
    NarratorTest()
        : narrator(out, till::Paint(false))
    {
        interpreter.addObserver([this](const till::ExecutedCommand &command, const till::Json &) {
            narrator.tell(command);
        });
        interpreter.setRemarkObserver(
            [this](const QString &remark) { narrator.tellRemark(remark); });
    }
    /// What is told about one command.
    std::string story(const QString &line)
    {
        out.str({});
        whenExecuted(line);
        return out.str();
    }

    std::ostringstream out;
    till::Narrator narrator;
};

TEST_F(NarratorTest, APositionIsTold)
{
    EXPECT_EQ(
        story(u"add 1003 0.742"_s), "> add 1003 0.742\n    1. Сыр: 0.742 x 600.00 = 445.20\n");
}

TEST_F(NarratorTest, ACardIsToldWithHolderTypeAndBalance)
{
    loyalty->behaviour[u"identifyByCard"_s] = [this] {
        const auto client = QSharedPointer<Client>::create();
        client->setName(u"Иван"_s);
        loyalty->presented->getCard()->setClient(client);
        loyalty->presented->getCard()->getCardGroup()->setName(u"Золотая"_s);
        loyalty->presented->setBonusBalance(u"120.50"_s);
        return true;
    };
    EXPECT_EQ(
        story(u"card 29"_s), "> card 29\n    Card 29, Иван (Золотая), balance 120.50 points\n");
}

TEST_F(NarratorTest, ARefusalIsTold)
{
    loyalty->refuseWith(u"id"_s, u"Карта заблокирована"_s, false);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    EXPECT_EQ(story(u"card 29"_s), "> card 29\n    Refused: «Карта заблокирована»\n");
}

TEST_F(NarratorTest, ATotalTellsDiscountsMessagesAndWhatIsToBePaid)
{
    story(u"add 1002"_s);
    loyalty->behaviour[u"request"_s] = [this] {
        loyalty->giveDiscount(1, 10.0);
        loyalty->setMessageToCashier(u"Предложите пакет"_s);
        return true;
    };
    EXPECT_EQ(story(u"total"_s),
        "> total\n    Document 17 (sale) is open\n"
        "    1. Молоко: 1 x 100.00 = 100.00, discount 10.00: 90.00\n"
        "    Sum 100.00, discount 10.00. To pay 90.00\n    For the cashier: Предложите пакет\n");
}

TEST_F(NarratorTest, PointsThatCanBeSpentAreToldBeforeAndAfterAPaymentWithThem)
{
    story(u"add 1002"_s);
    loyalty->behaviour[u"request"_s] = [this] {
        loyalty->giveDiscount(1, 10.0);
        return true;
    };
    loyalty->setAvailablePoints(50.0);
    EXPECT_NE(story(u"total"_s).find("To pay 90.00\n    Points that can be spent: 50.00\n"),
        std::string::npos);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 20.0);
        return true;
    };
    EXPECT_EQ(story(u"points 20"_s),
        "> points 20\n    Document 17 (sale) is open\n"
        "    1. Молоко: 1 x 100.00 = 100.00, discount 10.00, points 20.00: 70.00\n"
        "    Sum 100.00, discount 10.00, points 20.00. To pay 70.00\n"
        "    Paid with points: 20.00, can be spent: 50.00\n");
}

TEST_F(NarratorTest, AReturnTellsThePointsThatComeBackButNotTheBalanceOfTheSale)
{
    loyalty->behaviour[u"identifyByCard"_s] = [this] {
        loyalty->presented->setBonusBalance(120.5);
        return true;
    };
    story(u"card 29"_s);
    story(u"add 1002"_s);
    loyalty->setAvailablePoints(50.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 20.0);
        return true;
    };
    story(u"points 20"_s);
    story(u"close"_s);
    EXPECT_EQ(story(u"return 17"_s),
        "> return 17\n    Document 18 (return of sale 17) is open\n    Card 29\n"
        "    1. Молоко: 1 x 100.00 = 100.00, points 20.00: 80.00\n"
        "    Sum 100.00, points 20.00. To pay back 80.00\n    Points to be given back: 20.00\n");
}

TEST_F(NarratorTest, APriceThatIsRaisedIsNotHidden)
{
    story(u"add 1002"_s);
    loyalty->behaviour[u"request"_s] = [this] {
        loyalty->giveDiscount(1, -5.0);
        return true;
    };
    EXPECT_NE(story(u"total"_s).find("= 100.00, discount -5.00: 105.00\n"), std::string::npos);
}

TEST_F(NarratorTest, EmptyMessagesAreNotShown)
{
    story(u"add 1002"_s);
    loyalty->behaviour[u"request"_s] = [this] {
        loyalty->setMessageToCashier(QString());
        return true;
    };
    EXPECT_EQ(story(u"total"_s).find("For the cashier"), std::string::npos);
}

TEST_F(NarratorTest, DialogsAreToldInTheirPlace)
{
    story(u"add 1002"_s);
    loyalty->behaviour[u"request"_s] = [] {
        MockFactory<Dialog>::create()->showMessage(tr::Tr(u"m"_s, u"Первая\nвторая"_s));
        return MockFactory<Dialog>::create()->showChoice(tr::Tr(u"c"_s, u"Да?"_s), {}, {});
    };
    const std::string told = story(u"total"_s);
    EXPECT_NE(told.find("    The cashier reads: «Первая\n    вторая»\n"
                        "    The cashier is asked: «Да?» and answers: ok\n"),
        std::string::npos)
        << told;
}

TEST_F(NarratorTest, AClosedChequeIsToldWithItsReceipt)
{
    story(u"add 1002"_s);
    const std::string told = story(u"close"_s);
    EXPECT_NE(told.find("    │ "), std::string::npos) << told;
    EXPECT_NE(told.find("    Document 17 (sale) is closed, 100.00\n"), std::string::npos) << told;
}

TEST_F(NarratorTest, AStoppedActionIsTold)
{
    loyalty->hookIn(control::EActionType::AddPosition, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Refuse; });
    EXPECT_NE(story(u"add 1002"_s).find("The plug-in stopped it."), std::string::npos);
}

TEST_F(NarratorTest, RemarksOfTheScriptAreItsOwnWords)
{
    for (const QString &line :
        {u"# A customer"_s, u"#comes."_s, u""_s, u"sale # no remark"_s, u"# And"_s})
        whenExecuted(line);
    EXPECT_EQ(out.str(),
        "\nA customer\ncomes.\n> sale # no remark\n    Document 17 (sale) is open\n\nAnd\n");
}

TEST_F(NarratorTest, AnEmptyDeskIsTold)
{
    EXPECT_EQ(story(u"show"_s), "> show\n    No document is open.\n    Waiting to be sent: 0\n");
}

TEST_F(NarratorTest, AtAPromptNeitherCommandNorDialogIsRepeated)
{
    narrator.leaveOutWhatThePromptShows();
    loyalty->behaviour[u"identifyByCard"_s] = [] {
        MockFactory<Dialog>::create()->showMessage(tr::Tr(u"m"_s, u"Привет"_s));
        return true;
    };
    EXPECT_EQ(story(u"card 29"_s), "    Card 29\n");
}

} // namespace

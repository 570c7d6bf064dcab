// Every command of the table does what it says, and says what is wrong with it.

#include "host/framework/currenttime.h"
#include "tests/till/support/scriptfixture.h"

using namespace Qt::StringLiterals;

namespace {

class CommandsTest : public ScriptFixture
{
public:
    QStringList notices() const
    {
        QStringList texts;
        for (const auto &text : object()["notices"])
            texts.append(QString::fromStdString(text.get<std::string>()));
        return texts;
    }
};

TEST_F(CommandsTest, SaleOpensASale)
{
    whenExecuted(u"sale"_s);
    EXPECT_EQ(document()->getTypeCode(), 1);
}

TEST_F(CommandsTest, ReturnOpensAReturn)
{
    whenExecuted(u"return"_s);
    EXPECT_EQ(document()->getTypeCode(), 7);
}

TEST_F(CommandsTest, ReturnWithANumberOpensAReturnOfThatSale)
{
    whenExecuted(u"return "_s + givenClosedSale());
    EXPECT_EQ(document()->getTypeCode(), 25);
}

TEST_F(CommandsTest, CardIsKeyed)
{
    whenExecuted(u"card 2900000000017"_s);
    EXPECT_EQ(document()->getCardNumber(), u"2900000000017"_s);
    EXPECT_EQ(loyalty->presentedHow, ECardNumberType::Keyed);
}

TEST_F(CommandsTest, InputScans)
{
    whenExecuted(u"input 461001"_s);
    EXPECT_EQ(document()->getGoods().size(), 1);
}

TEST_F(CommandsTest, AddTakesQuantityPriceRawDataAndOptions)
{
    QString raw;
    loyalty->hookIn(control::EActionType::AddPosition, ActionTrigger::Order::After,
        [&](const control::Action &action) {
            raw = action.value(u"rawdata"_s, {}).toString();
            return EContext::Result::Continue;
        });
    whenExecuted(u"add 1003 0.742 raw='A B' price=500.5 options=MARKDOWN30,x"_s);
    const auto position = document()->getPosition(1);
    EXPECT_DOUBLE_EQ(position->getBquant(), 0.742);
    EXPECT_DOUBLE_EQ(position->getPrice(), 500.5);
    EXPECT_EQ(position->getExtendedOptions(), u"MARKDOWN30,x"_s);
    EXPECT_EQ(raw, u"A B"_s);
}

TEST_F(CommandsTest, QuantityAndStornoTakeAPosition)
{
    whenExecuted(u"add 1001"_s);
    whenExecuted(u"add 1002"_s);
    whenExecuted(u"quantity 1 3"_s);
    whenExecuted(u"storno 2"_s);
    EXPECT_DOUBLE_EQ(document()->getPosition(1)->getBquant(), 3.0);
    EXPECT_FALSE(document()->getPosition(2));
}

TEST_F(CommandsTest, CouponPassesItsRawData)
{
    QStringList raw;
    loyalty->hookIn(control::EActionType::AddCoupon, ActionTrigger::Order::After,
        [&](const control::Action &action) {
            raw.append(action.value(u"rawdata"_s, {}).toString());
            return EContext::Result::Continue;
        });
    whenExecuted(u"coupon 990 raw=MARKDOWN50"_s);
    whenExecuted(u"coupon 991"_s);
    EXPECT_EQ(raw, (QStringList{u"MARKDOWN50"_s, QString()}));
}

TEST_F(CommandsTest, TotalPointsPayAndCloseSellACheque)
{
    loyalty->setAvailablePoints(30.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 20.0);
        return true;
    };
    for (const QString &line :
        {u"add 1002"_s, u"total"_s, u"points 20"_s, u"pay card 50"_s, u"pay cash"_s, u"close"_s})
        whenExecuted(line);
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 20.0);
    EXPECT_EQ(object()["document"]["payments"].dump(),
        R"([{"kind":"card","amount":50.0},{"kind":"cash","amount":30.0}])");
    EXPECT_EQ(object()["document"]["state"], "closed");
}

TEST_F(CommandsTest, CancelShowsTheCancelledDocument)
{
    whenExecuted(u"sale"_s);
    whenExecuted(u"cancel"_s);
    EXPECT_EQ(object()["document"]["state"], "cancelled");
    EXPECT_EQ(object()["result"], true);
    whenExecuted(u"show"_s);
    EXPECT_TRUE(object()["document"].is_null());
}

TEST_F(CommandsTest, AnswersGoIntoTheLine)
{
    whenExecuted(u"answer cancel"_s);
    whenExecuted(u"answer ok"_s);
    whenExecuted(u"answer text one two"_s);
    EXPECT_FALSE(answers.choose({}, {}, {}));
    EXPECT_TRUE(answers.choose({}, {}, {}));
    EXPECT_EQ(answers.enter({}), u"one two"_s);
}

TEST_F(CommandsTest, AnswersThatNobodyAskedForAreDropped)
{
    whenExecuted(u"answer cancel"_s);
    whenExecuted(u"answer text one two"_s);
    whenExecuted(u"answer none"_s);
    EXPECT_TRUE(answers.choose({}, {}, {}));
    EXPECT_EQ(answers.enter({}), std::nullopt);
}

TEST_F(CommandsTest, ClockFreezesAndRuns)
{
    const auto now = [] { return MockFactory<CurrentTime>::create()->currentDateTime(); };
    whenExecuted(u"clock 2026-03-01T12:30:00"_s);
    EXPECT_EQ(now(), QDateTime(QDate(2026, 3, 1), QTime(12, 30)));
    EXPECT_EQ(now().timeSpec(), Qt::LocalTime);
    whenExecuted(u"clock real"_s);
    EXPECT_LT(now().secsTo(QDateTime::currentDateTime()), 60);
}

TEST_F(CommandsTest, DeliverAndCloseShiftTell)
{
    whenExecuted(u"deliver"_s);
    EXPECT_EQ(notices().size(), 1);
    whenExecuted(u"close-shift"_s);
    EXPECT_EQ(notices().value(0), u"Продажи: 0, сумма 0.00"_s);
}

TEST_F(CommandsTest, ShowTellsWhatWaits)
{
    whenExecuted(u"show"_s);
    EXPECT_EQ(notices(), QStringList{u"Ждут отправки: 0"_s});
}

TEST_F(CommandsTest, HelpTellsEveryCommand)
{
    whenExecuted(u"help"_s);
    ASSERT_EQ(notices().size(), till::Commands::table().size());
    for (const auto &command : till::Commands::table())
        EXPECT_TRUE(notices().join(u'\n').contains(command.usage)) << qPrintable(command.usage);
}

TEST_F(CommandsTest, WrongArgumentsAreErrors)
{
    const QList<QPair<QString, QString>> rows{{u"sell"_s, u"there is no command \"sell\"; "_s},
        {u"sale now"_s, u"\"now\" is one word too many; write: sale"_s},
        {u"return 1 2"_s, u"\"2\" is one word too many; "_s}, {u"card"_s, u"NUMBER is missing; "_s},
        {u"card 1 2"_s, u"\"2\" is one word too many; "_s},
        {u"card raw=1 2"_s, u"\"2\" is one word too many; "_s},
        {u"input"_s, u"DATA is missing; "_s}, {u"input 1 2"_s, u"\"2\" is one word"_s},
        {u"add"_s, u"CODE is missing; "_s}, {u"add 1001 x"_s, u"QUANTITY must be"_s},
        {u"add 1001 0"_s, u"QUANTITY must be greater"_s},
        {u"add 1001 price=x"_s, u"price must be"_s}, {u"add 1001 1 2"_s, u"\"2\" is one word"_s},
        {u"quantity 1"_s, u"QUANTITY is missing"_s}, {u"quantity x 1"_s, u"POSITION must be"_s},
        {u"quantity 1 1 1"_s, u"\"1\" is one word"_s}, {u"storno"_s, u"POSITION is missing"_s},
        {u"storno 1 2"_s, u"\"2\" is one word"_s}, {u"coupon"_s, u"NUMBER is missing"_s},
        {u"coupon 1 2"_s, u"\"2\" is one word"_s}, {u"total 1"_s, u"\"1\" is one word"_s},
        {u"points x"_s, u"AMOUNT must be"_s}, {u"points 1 2"_s, u"\"2\" is one word"_s},
        {u"pay"_s, u"KIND is missing"_s}, {u"pay gold"_s, u"nobody pays with \"gold\""_s},
        {u"pay cash 0"_s, u"AMOUNT must be greater"_s}, {u"pay cash 1 2"_s, u"\"2\" is one word"_s},
        {u"close 1"_s, u"\"1\" is one word"_s}, {u"cancel 1"_s, u"\"1\" is one word"_s},
        {u"answer"_s, u"ok|cancel|text|none is missing"_s},
        {u"answer maybe"_s, u"\"maybe\" is no answer"_s},
        {u"answer text"_s, u"WORDS are missing"_s}, {u"answer ok 1"_s, u"\"1\" is one word"_s},
        {u"deliver 1"_s, u"\"1\" is one word"_s}, {u"close-shift 1"_s, u"\"1\" is one word"_s},
        {u"fault"_s, u"WORDS are missing"_s}, {u"clock"_s, u"TIME is missing"_s},
        {u"clock noon"_s, u"\"noon\" is no time"_s}, {u"clock real 1"_s, u"\"1\" is one word"_s},
        {u"show 1"_s, u"\"1\" is one word"_s}, {u"help 1"_s, u"\"1\" is one word"_s},
        {u"add 'x"_s, u"a single quote is not closed"_s}};
    for (const auto &[line, reason] : rows) {
        SCOPED_TRACE(qPrintable(line));
        EXPECT_TRUE(whyNotExecuted(line).startsWith(reason)) << qPrintable(whyNotExecuted(line));
        EXPECT_FALSE(document());
    }
    EXPECT_TRUE(objects.isEmpty());
}

} // namespace

// A cheque that neither the queue nor its spill file can take.

#include "tests/till/queue/queueprogramfixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class UnkeptTest : public QueueProgramFixture
{
public:
    UnkeptTest()
    {
        givenFile(u"till.ini"_s,
            "[Till]\ncatalogue=catalogue.json\n[KorvelLoyaltyOnline]\nurl=http://127.0.0.1:9/\n");
    }
    /// Sells a cheque with the real plug-in while there is no service; what closing it was told as.
    nlohmann::json whenSoldOffline()
    {
        const QString sale = givenFile(u"sale.till"_s, "card 2900000000017\nadd 1002\nclose\n");
        whenStarted({u"run"_s, u"--plugin"_s, QStringLiteral(LOYALTY_PLUGIN), u"--state"_s,
            stateFolder(), u"--transcript"_s, u"-"_s, sale});
        const QList<nlohmann::json> objects = transcript();
        EXPECT_EQ(objects.size(), 3) << errors.toStdString();
        return objects.value(2);
    }
};

TEST_F(UnkeptTest, TheCashierReadsWhatToNoteDown)
{
    // Where the folder of the queue would be.
    ASSERT_TRUE(QDir().rmdir(stateFolder() + u"/queue"_s));
    givenFile(u"state/queue"_s, "");
    const std::string told = whenSoldOffline().dump();
    EXPECT_NE(told.find("Не удалось сохранить чек в очередь отправки"), std::string::npos) << told;
    EXPECT_NE(told.find("Запишите номер чека и сообщите администратору"), std::string::npos);
    EXPECT_EQ(told.find("enqueue"), std::string::npos) << "it is not told as kept";
}

TEST_F(UnkeptTest, WhatTheSpillFileTakesIsNoTrouble)
{
    givenSpilled(makeMessage(u"aa"_s));
    const std::string told = whenSoldOffline().dump();
    EXPECT_EQ(told.find("Не удалось сохранить"), std::string::npos) << told;
    EXPECT_NE(told.find("enqueue korvelloyaltyonline"), std::string::npos) << told;
    EXPECT_EQ(whenAskedForJson({u"status"_s})["spilled"], 2);
}

} // namespace

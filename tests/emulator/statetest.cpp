#include "tests/emulator/support/desktest.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class StateTest : public testing::Test
{
protected:
    StateTest()
    {
        CardData card;
        card.number = QString::fromLatin1(testCard);
        card.status = 2;
        card.openingBalance = amount("500.00");
        card.openingStickers = 10;
        data.servedStatuses = {2};
        data.cards = {card};
        data.earning.percent = Percent::ofHundredths(500);
    }

    /// Answers as a service would that is started for one request.
    Answer whenStartedAndAsked(const Request &request)
    {
        Database database(path);
        Desk desk(data, database, [] { return QDateTime::currentDateTimeUtc(); });
        return desk.answer(request);
    }

    Amount whenBalanceIsAsked()
    {
        const Answer answer
            = whenStartedAndAsked(BalanceRequest{{}, QString::fromLatin1(testCard)});
        return std::get<BalanceAnswer>(answer).card->balance;
    }

    QString whenOpeningFails()
    {
        try {
            const Database database(path);
        } catch (const BooksError &error) {
            return QString::fromUtf8(error.what());
        }
        return u"it was opened"_s;
    }

    ServiceData data;
    QTemporaryDir directory;
    const QString path = directory.filePath(u"books"_s);
};

TEST_F(StateTest, IsReadableForItsOwnerOnly)
{
    whenBalanceIsAsked();
    constexpr auto others
        = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_EQ(QFileInfo(path).permissions() & others, QFile::Permissions());
}

TEST_F(StateTest, OutlivesTheService)
{
    const SaleRequest sale = offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}});
    const QByteArray first = writeAnswer(whenStartedAndAsked(sale));
    EXPECT_EQ(writeAnswer(whenStartedAndAsked(sale)), first);
    EXPECT_EQ(whenBalanceIsAsked(), amount("505.00"));
}

TEST_F(StateTest, GivesNoSecondOpeningBalance)
{
    EXPECT_EQ(whenBalanceIsAsked(), amount("500.00"));
    data.cards[0].openingBalance = amount("900.00");
    EXPECT_EQ(whenBalanceIsAsked(), amount("500.00"));
}

TEST_F(StateTest, GivesNoSecondOpeningStickers)
{
    whenBalanceIsAsked();
    data.cards[0].openingStickers = 90;
    Database database(path);
    const Desk desk(data, database, [] { return QDateTime::currentDateTimeUtc(); });
    EXPECT_EQ(desk.books().ledger.balance(QString::fromLatin1(testCard), Account::Stickers),
        amount("10.00"));
}

TEST_F(StateTest, TakesOverWhatTheDataSaysAboutAKnownCard)
{
    whenBalanceIsAsked();
    data.cards[0].status = 3;
    data.cards[0].type = u"gold"_s;
    data.cards[0].holder = u"Орлов"_s;
    data.cards[0].email = u"o@example.com"_s;
    data.cards[0].chequesByEmail = true;
    data.cards[0].attributes = {{u"VIP"_s, u"1"_s}};
    const Answer answer = whenStartedAndAsked(BalanceRequest{{}, QString::fromLatin1(testCard)});
    const CardFigures card = std::get<BalanceAnswer>(answer).card.value();
    EXPECT_EQ(card.status, 3);
    EXPECT_EQ(card.type, u"gold");
    EXPECT_EQ(card.holder, u"Орлов");
    EXPECT_EQ(card.email, u"o@example.com");
    EXPECT_TRUE(card.chequesByEmail);
    EXPECT_EQ(card.attributes.value(u"VIP"_s), u"1");
}

TEST_F(StateTest, IsForgottenByAReset)
{
    Database database(path);
    Desk desk(data, database, [] { return QDateTime::currentDateTimeUtc(); });
    const SaleRequest sale = offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}});
    desk.answer(sale);
    desk.reset();
    EXPECT_EQ(desk.books().ledger.balance(QString::fromLatin1(testCard), Account::Active),
        amount("500.00"));
    EXPECT_EQ(std::get<ChequeAnswer>(desk.answer(sale)).figures->transaction, u"0000000001");
}

TEST_F(StateTest, OfAnotherProgramIsLeftAlone)
{
    {
        Database database(path);
        database.change(u"PRAGMA user_version = 99"_s);
    }
    EXPECT_TRUE(whenOpeningFails().contains(u"another program or version"));
}

TEST_F(StateTest, OfAnEarlierLayoutIsLeftAlone)
{
    for (const int version : {1, 2, 3}) {
        {
            QFile::remove(path);
            Database database(path);
            database.change(u"PRAGMA user_version = %1"_s.arg(version));
        }
        EXPECT_TRUE(whenOpeningFails().contains(u"another program or version")) << version;
    }
}

TEST_F(StateTest, ThatIsNotInOrderIsTold)
{
    Database database(path);
    Desk desk(data, database, [] { return QDateTime::currentDateTimeUtc(); });
    database.change(u"UPDATE ledger SET amount = 1"_s);
#ifdef NDEBUG
    GTEST_SKIP() << "only debug builds add the books up after each request";
#endif
    try {
        desk.answer(BalanceRequest{{}, QString::fromLatin1(testCard)});
        FAIL() << "the request was answered";
    } catch (const BooksError &error) {
        EXPECT_TRUE(
            QString::fromUtf8(error.what()).startsWith(u"the books are not in order: card "));
    }
}

TEST_F(StateTest, ThatIsNoDatabaseIsNamed)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4096, 'x'));
    file.close();
    EXPECT_TRUE(whenOpeningFails().startsWith(path + u':')) << qPrintable(whenOpeningFails());
}

TEST_F(StateTest, ThatCannotBeWrittenIsNamed)
{
    EXPECT_THROW(Database(u"/nowhere/books"_s), BooksError);
}

TEST_F(StateTest, IsAsBeforeWhenAStepFails)
{
    Database database(path);
    Desk desk(data, database, [] { return QDateTime::currentDateTimeUtc(); });
    database.change(u"CREATE TRIGGER broken BEFORE UPDATE ON transactions"
                    " BEGIN SELECT RAISE(ABORT, 'disk full'); END"_s);
    EXPECT_THROW(desk.answer(offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}})), BooksError);
    EXPECT_EQ(desk.books().ledger.balance(QString::fromLatin1(testCard), Account::Active),
        amount("500.00"));
    EXPECT_TRUE(desk.books().transactions.latest(1).empty());
}

} // namespace
} // namespace emulator

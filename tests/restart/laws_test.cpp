// The laws find what they are there to find: books that are in order are spoilt in one thing each.

#include "tests/restart/course.h"
#include "tests/restart/laws.h"
#include "tests/support/printers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::Property;

namespace restart {

namespace {

// The numbers of its cheques: 1 paid with points, 2 without, 3 a return of a part of 1, 4 sold
// offline; 5 takes stickers, and 6 is a return of a part of it.
const QString day = u"card 2900000000017\nadd 1004 2\nadd 1001\ntotal\npoints 50\nclose\n"
                    "card 2900000000017\nadd 1004\ntotal\nclose\n"
                    "return 1\nquantity 1 1\nclose\n"
                    "fault balance reset\ncard 2900000000017\nadd 1001\ntotal\nclose\ndeliver\n"
                    "card 2900000000062\nadd 1007 2\ntotal\nclose\n"
                    "return 5\nquantity 1 1\nclose\n"_s;

Json &transaction(Books &books, const char *number)
{
    for (Json &one : books.transactions)
        if (one.at("number") == number)
            return one;
    throw std::runtime_error("no such transaction");
}

Json &card(Books &books, const char *number = "2900000000017")
{
    for (Json &one : books.cards)
        if (one.at("number") == number)
            return one;
    throw std::runtime_error("no such card");
}

Json &document(Books &books, const char *number)
{
    for (Json &one : books.closed)
        if (one.at("number") == number)
            return one;
    throw std::runtime_error("no such document");
}

void remove(Json &list, const Json &one)
{
    list.erase(std::find(list.begin(), list.end(), one));
}

// The card's entry for that cheque.
Json entry(Books &books, const char *number, const char *kind)
{
    for (const Json &one : card(books).at("ledger"))
        if (one.at("transaction") == transaction(books, number).at("id")
            && one.at("account") == "active" && one.at("kind") == kind)
            return one;
    throw std::runtime_error("no such entry");
}

void removeEntry(Books &books, const char *number, const char *kind)
{
    remove(card(books).at("ledger"), entry(books, number, kind));
}

struct Spoilt
{
    const char *name;
    std::function<void(Books &)> spoil;
    const char *finding; ///< what a sentence about it holds
};

const Spoilt spoilt[] = {
    {"ARegistrationIsMissing", [](Books &b) { remove(b.transactions, transaction(b, "2")); },
        "sale 2 of card 2900000000017 is booked 0 times"},
    {"AQueuedRegistrationIsMissing", [](Books &b) { remove(b.transactions, transaction(b, "4")); },
        "sale 4 of card 2900000000017 is booked 0 times"},
    {"ARegistrationIsDoubled", [](Books &b) { b.transactions.push_back(transaction(b, "2")); },
        "sale 2 of card 2900000000017 is booked 2 times"},
    {"ARegistrationIsRolledBack", [](Books &b) { transaction(b, "2")["rolledBack"] = true; },
        "sale 2 of card 2900000000017 is booked 0 times"},
    {"ARegistrationIsOfAnotherCard",
        [](Books &b) { transaction(b, "2")["card"] = "2900000000024"; },
        "sale 2 of card 2900000000017 is booked 0 times"},
    {"AReturnIsMissing", [](Books &b) { remove(b.transactions, transaction(b, "3")); },
        "return 3 of card 2900000000017 is booked 0 times"},
    {"AReturnIsDoubled", [](Books &b) { b.transactions.push_back(transaction(b, "3")); },
        "return 3 of card 2900000000017 is booked 2 times"},
    {"AReturnIsBookedAsSale", [](Books &b) { transaction(b, "3")["kind"] = "sale"; },
        "return 3 of card 2900000000017 is booked 0 times"},
    {"ARegistrationIsOfNoCheque", [](Books &b) { transaction(b, "2")["number"] = "99"; },
        "the service has booked what the till has not closed"},
    {"PointsAreSpentTwice",
        [](Books &b) { transaction(b, "1").at("positions")[0]["spent"] = 100.0; },
        "sale 1 of card 2900000000017: points spent at the till 50"},
    {"PointsAreSpentUnasked",
        [](Books &b) { transaction(b, "4").at("positions")[0]["spent"] = 1.0; },
        "sale 4 of card 2900000000017: points spent at the till 0, at the service 1"},
    {"TheChequeTellsOtherPoints",
        [](Books &b) { document(b, "2").at("effects")["bonusRecords"] = Json::array(); },
        "sale 2 of card 2900000000017: points earned at the till 0"},
    {"TheSumDiffers", [](Books &b) { transaction(b, "1")["sumDiscounted"] = 1.0; },
        "sale 1 of card 2900000000017: sum after discounts at the till"},
    {"TheChequeNamesAnotherRegistration",
        [](Books &b) { document(b, "2").at("cards")[0]["operationId"] = "7"; },
        "sale 2 of card 2900000000017: it names another registration"},
    {"ACardHasTooManyPoints",
        [](Books &b) { card(b)["balance"] = card(b).at("balance").get<double>() + 1.0; },
        "card 2900000000017 has"},
    {"PointsAreEarnedTwice",
        [](Books &b) { card(b).at("ledger").push_back(entry(b, "2", "earned")); },
        "card 2900000000017: earned points for transaction"},
    {"PointsAreNotEarned", [](Books &b) { removeEntry(b, "2", "earned"); },
        "card 2900000000017: earned points for transaction"},
    {"PointsAreNotTaken", [](Books &b) { removeEntry(b, "1", "spent"); },
        "card 2900000000017: spent points for transaction"},
    {"PointsAreNotGivenBack", [](Books &b) { removeEntry(b, "3", "given back"); },
        "card 2900000000017: given back points for transaction"},
    {"PointsAreNotTakenBack", [](Books &b) { removeEntry(b, "3", "taken back"); },
        "card 2900000000017 has"},
    {"ARollbackMovesNothing", [](Books &b) { transaction(b, "2")["rolledBack"] = true; },
        "card 2900000000017: rolled back points for transaction"},
    {"StickersAreNotTaken",
        [](Books &b) {
            Json &ledger = card(b, "2900000000062").at("ledger");
            for (Json &one : ledger)
                if (one.at("account") == "stickers" && one.at("kind") == "spent")
                    one["account"] = "status";
        },
        "card 2900000000062: spent stickers for transaction"},
    {"StickersAreTakenUnasked",
        [](Books &b) { transaction(b, "4").at("positions")[0]["stickers"] = 1.0; },
        "card 2900000000017: spent stickers for transaction"},
    {"StickersAreNotGivenBack",
        [](Books &b) { transaction(b, "6").at("positions")[0]["stickers"] = 0.0; },
        "card 2900000000062: given back stickers for transaction"},
    {"ACardHasTooManyStickers", [](Books &b) { card(b, "2900000000062")["stickers"] = 99.0; },
        "card 2900000000062 has 99 stickers"},
    {"ADocumentIsOpen", [](Books &b) { b.hasOpenDocument = true; }, "a document is still open"},
    {"AMessageWaits", [](Books &b) { b.undelivered.append(u"5 (pending)"_s); },
        "message 5 (pending) was not delivered"},
    {"AFileIsTorn", [](Books &b) { b.tornFiles.append(u"a.json"_s); }, "a.json is torn"},
    {"AFileIsLeft", [](Books &b) { b.temporaryFiles.append(u"a.new"_s); }, "a.new is left behind"},
    {"TheAuditFindsSomething", [](Books &b) { b.audit.at("problems").push_back("a hole"); },
        "the service's audit: a hole"},
    {"ATillCrashed",
        [](Books &b) {
            b.ends.push_back({false, SIGSEGV, 0});
        },
        "a till ended by signal 11"},
    {"ATillCrashedWhenItWasToBeKilled",
        [](Books &b) {
            b.ends.push_back({true, SIGSEGV, 0});
        },
        "a till ended by signal 11"},
    {"ATillWasKilledByAnother",
        [](Books &b) {
            b.ends.push_back({false, SIGKILL, 0});
        },
        "a till ended by signal 9"},
    {"ATillCouldNotUseItsFolder",
        [](Books &b) {
            b.ends.push_back({false, 0, 3});
        },
        "a till ended with status 3"},
};

class LawsTest : public testing::Test
{
public:
    // Sold once for all tests of a process.
    static void SetUpTestSuite()
    {
        const Scenario scenario = readScenario(u"day"_s, day);
        inOrder = Course(scenario).run().books;
    }

    static Books inOrder;
};

Books LawsTest::inOrder;

TEST_F(LawsTest, BooksInOrderAreFoundInOrder)
{
    ASSERT_EQ(inOrder.transactions.size(), 6U);
    ASSERT_EQ(inOrder.closed.size(), 6U);
    EXPECT_EQ(laws::violations(inOrder), QStringList());
}

TEST_F(LawsTest, KilledTillsAndRefusedCommandsAreInOrder)
{
    Books books = inOrder;
    books.ends = {{true, SIGKILL, 0}, {false, 0, 2}, {false, 0, 0}};
    EXPECT_EQ(laws::violations(books), QStringList());
}

// A cheque without a loyalty card is the till's alone.
TEST_F(LawsTest, AChequeWithoutACardIsNotLookedFor)
{
    Books books = inOrder;
    books.closed.push_back(document(books, "2"));
    books.closed.back()["number"] = "7";
    books.closed.back()["cards"] = Json::array();
    EXPECT_EQ(laws::violations(books), QStringList());
}

// In one test, because selling them anew for each row takes its time.
TEST_F(LawsTest, FindEachThingThatIsSpoilt)
{
    for (const Spoilt &one : spoilt) {
        SCOPED_TRACE(one.name);
        Books books = inOrder;
        one.spoil(books);
        EXPECT_THAT(laws::violations(books),
            Contains(Property(&QString::toStdString, testing::HasSubstr(one.finding))));
    }
}

} // namespace

} // namespace restart

// Numbers of documents: ascending, and none is given twice, whatever became of its document.

#include "host/storage/documentstore.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "tests/host/storage/files.h"
#include "tests/support/hostfixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

class NumbersTest : public testing::Test, public HostFixture
{
protected:
    NumbersTest()
        : store(std::make_unique<DocumentStore>())
    { }

    void givenClosed(const QString &number)
    {
        givenCurrentDocument(EDocumentType::Sale, number);
        document()->setState(EDocumentState::Closed);
        store->close(document());
    }
    void whenRestarted()
    {
        store.reset();
        store = std::make_unique<DocumentStore>();
    }
    [[nodiscard]] static QString numbersFile()
    {
        return Singleton<StateFolder>::instance()->numbers();
    }

    std::unique_ptr<DocumentStore> store;
};

TEST_F(NumbersTest, FirstOneIsThatOfTheTill)
{
    EXPECT_EQ(store->nextNumber(100), u"100"_s);
    EXPECT_EQ(store->nextNumber(100), u"101"_s);
}

TEST_F(NumbersTest, GoOnAfterARestart)
{
    EXPECT_EQ(store->nextNumber(1), u"1"_s);
    whenRestarted();
    EXPECT_EQ(store->nextNumber(1), u"2"_s);
}

TEST_F(NumbersTest, NumberOfADroppedDocumentIsNotGivenAgain)
{
    givenCurrentDocument(EDocumentType::Sale, store->nextNumber(1));
    store->saveOpen(document());
    store->discard();
    whenRestarted();
    EXPECT_EQ(store->nextNumber(1), u"2"_s);
}

TEST_F(NumbersTest, HigherFirstChequeCountsFromThere)
{
    EXPECT_EQ(store->nextNumber(1), u"1"_s);
    EXPECT_EQ(store->nextNumber(500), u"500"_s);
    EXPECT_EQ(store->nextNumber(1), u"501"_s);
}

TEST_F(NumbersTest, WithoutTheirFileTheyGoOnBehindTheDocuments)
{
    givenClosed(u"9"_s);
    givenClosed(u"10"_s);
    EXPECT_EQ(store->nextNumber(1), u"11"_s);
    ASSERT_TRUE(QFile::remove(numbersFile()));
    givenCurrentDocument(EDocumentType::Sale, u"12"_s);
    store->saveOpen(document());
    EXPECT_EQ(store->nextNumber(1), u"13"_s);
}

TEST_F(NumbersTest, DamagedFileIsAnErrorAndStays)
{
    for (const QByteArray damaged : {"", "{}", "{\"highestNumber\": \"x\"}", "damaged"}) {
        files::put(numbersFile(), damaged);
        EXPECT_THROW(static_cast<void>(store->nextNumber(1)), StorageError);
        EXPECT_EQ(files::contents(numbersFile()), damaged);
    }
}

TEST_F(NumbersTest, NumberThatCannotBeKeptIsNotGiven)
{
    ASSERT_TRUE(QDir(stateFolder()).mkdir(u"numbers.json.new"_s));
    EXPECT_THROW(static_cast<void>(store->nextNumber(1)), StorageError);
}

} // namespace

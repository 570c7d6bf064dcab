// The documents of a till over its restarts, also those that come at the worst moment.

#include "host/storage/documentjson.h"
#include "host/storage/documentstore.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "tests/host/storage/files.h"
#include "tests/support/hostfixture.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

class DocumentStoreTest : public testing::Test, public HostFixture
{
protected:
    DocumentStoreTest()
    {
        whenRestarted();
        givenDocument(u"17"_s);
    }

    void givenDocument(const QString &number)
    {
        givenCurrentDocument(EDocumentType::Sale, number);
        document()->setCorrelationId(u"id of "_s + number);
    }
    void givenClosed(const QString &number)
    {
        givenDocument(number);
        document()->setState(EDocumentState::Closed);
        store->close(document());
    }
    void whenRestarted()
    {
        store.reset();
        store = std::make_unique<DocumentStore>();
    }
    [[nodiscard]] static QString openFile()
    {
        return Singleton<StateFolder>::instance()->openDocument();
    }
    [[nodiscard]] QString closedFile(const QString &number) const
    {
        return stateFolder() + u"/closed/"_s + number + u".json"_s;
    }

    std::unique_ptr<DocumentStore> store;
};

TEST_F(DocumentStoreTest, EmptyFolderHasNoOpenDocument)
{
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_TRUE(store->closedNumbers().isEmpty());
}

TEST_F(DocumentStoreTest, FoldersAreForTheirOwnerOnly)
{
    Singleton<StateFolder>::instance()->setPath(stateFolder() + u"/new/state"_s);
    const DocumentStore made;
    EXPECT_TRUE(files::isPrivate(stateFolder() + u"/new/state"_s));
    EXPECT_TRUE(files::isPrivate(stateFolder() + u"/new/state/closed"_s));
}

TEST_F(DocumentStoreTest, SecondTillIsRefusedAndToldWhoIsThere)
{
    try {
        const DocumentStore second;
        FAIL() << "two tills in one folder";
    } catch (const StorageError &error) {
        EXPECT_THAT(error.what(), testing::StartsWith(stateFolder().toStdString()));
        EXPECT_THAT(error.what(),
            testing::HasSubstr("процесс " + std::to_string(QCoreApplication::applicationPid())));
    }
}

TEST_F(DocumentStoreTest, OpenDocumentIsThereAfterARestart)
{
    store->saveOpen(document());
    whenRestarted();
    const auto restored = store->loadOpen();
    ASSERT_FALSE(restored.isNull());
    EXPECT_EQ(documentjson::write(*restored), documentjson::write(*document()));
}

TEST_F(DocumentStoreTest, ClosedDocumentIsNoLongerOpenAndCanBeLoaded)
{
    store->saveOpen(document());
    givenClosed(u"17"_s);
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_FALSE(QFile::exists(openFile()));
    ASSERT_FALSE(store->loadClosed(u"17"_s).isNull());
    EXPECT_EQ(store->loadClosed(u"17"_s)->getState(), EDocumentState::Closed);
    EXPECT_TRUE(files::isPrivate(closedFile(u"17"_s)));
}

TEST_F(DocumentStoreTest, KilledBetweenClosingAndDroppingIsNotSoldTwice)
{
    store->saveOpen(document());
    const QByteArray open = files::contents(openFile());
    givenClosed(u"17"_s);
    const QByteArray closed = files::contents(closedFile(u"17"_s));
    files::put(openFile(), open);
    whenRestarted();
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_FALSE(QFile::exists(openFile()));
    EXPECT_EQ(files::contents(closedFile(u"17"_s)), closed);
}

TEST_F(DocumentStoreTest, KilledBeforeClosingOfADocumentThatIsClosedFinishesIt)
{
    document()->setState(EDocumentState::Closed);
    store->saveOpen(document());
    whenRestarted();
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_FALSE(QFile::exists(openFile()));
    EXPECT_FALSE(store->loadClosed(u"17"_s).isNull());
}

TEST_F(DocumentStoreTest, KilledBeforeACancelledDocumentWasDroppedDropsIt)
{
    document()->setState(EDocumentState::Cancelled);
    store->saveOpen(document());
    whenRestarted();
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_FALSE(QFile::exists(openFile()));
    EXPECT_TRUE(store->closedNumbers().isEmpty());
}

TEST_F(DocumentStoreTest, ClosingCanBeRepeated)
{
    givenClosed(u"17"_s);
    document()->setChequeText(u"later"_s);
    store->close(document());
    EXPECT_EQ(store->loadClosed(u"17"_s)->getChequeText(), u"later"_s);
}

TEST_F(DocumentStoreTest, ClosedDocumentIsNeverReplacedByAnotherOne)
{
    givenClosed(u"17"_s);
    const QByteArray closed = files::contents(closedFile(u"17"_s));
    document()->setCorrelationId(u"another one"_s);
    store->saveOpen(document());
    EXPECT_THROW(store->close(document()), StorageError);
    EXPECT_EQ(files::contents(closedFile(u"17"_s)), closed);
    EXPECT_TRUE(QFile::exists(openFile()));
}

TEST_F(DocumentStoreTest, OpenDocumentWithTheNumberOfAnotherClosedOneStaysOpen)
{
    givenClosed(u"17"_s);
    document()->setCorrelationId(u"another one"_s);
    document()->setState(EDocumentState::Open);
    store->saveOpen(document());
    EXPECT_FALSE(store->loadOpen().isNull());
}

TEST_F(DocumentStoreTest, DroppedDocumentIsGone)
{
    store->saveOpen(document());
    store->discard();
    EXPECT_TRUE(store->loadOpen().isNull());
    EXPECT_NO_THROW(store->discard());
}

TEST_F(DocumentStoreTest, NumbersThatLeadOutOfTheFolderAreNone)
{
    store->saveOpen(document());
    for (const QString &number : {u"../document"_s, u""_s, u"17/"_s, u"17\n"_s, u"."_s})
        EXPECT_TRUE(store->loadClosed(number).isNull()) << qPrintable(number);
    givenDocument(u"../17"_s);
    EXPECT_THROW(store->close(document()), StorageError);
}

TEST_F(DocumentStoreTest, UnknownNumberHasNoDocument)
{
    EXPECT_TRUE(store->loadClosed(u"18"_s).isNull());
}

TEST_F(DocumentStoreTest, ClosedNumbersAreInTheirOrder)
{
    for (const QString &number : {u"10"_s, u"9"_s, u"100"_s})
        givenClosed(number);
    EXPECT_EQ(store->closedNumbers(), (QStringList{u"9"_s, u"10"_s, u"100"_s}));
}

TEST_F(DocumentStoreTest, DamagedOpenDocumentIsAnErrorAndStays)
{
    files::put(openFile(), "{\"format\": 1");
    EXPECT_THROW(static_cast<void>(store->loadOpen()), StorageError);
    EXPECT_EQ(files::contents(openFile()), "{\"format\": 1");
}

TEST_F(DocumentStoreTest, DamagedClosedDocumentIsAnErrorAndStays)
{
    files::put(closedFile(u"17"_s), "damaged");
    store->saveOpen(document());
    EXPECT_THROW(static_cast<void>(store->loadOpen()), StorageError);
    EXPECT_THROW(store->close(document()), StorageError);
    EXPECT_EQ(files::contents(closedFile(u"17"_s)), "damaged");
    EXPECT_TRUE(QFile::exists(openFile()));
}

} // namespace

// Saving while a document is open, and after the till has closed or dropped it.

#include "host/framework/basicexception.h"
#include "host/storage/documentjson.h"
#include "host/storage/opendocumenthold.h"
#include "host/storage/savetofilelogic.h"
#include "host/storage/statefolder.h"
#include "tests/host/storage/files.h"
#include "tests/support/hostfixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class SaveToFileLogicTest : public testing::Test, public HostFixture
{
protected:
    SaveToFileLogicTest()
    {
        givenCurrentDocument();
        document()->setCorrelationId(u"one"_s);
    }

    [[nodiscard]] static QString openFile()
    {
        return Singleton<StateFolder>::instance()->openDocument();
    }
    void whenSaved(const QString &fileName = {})
    {
        MockFactory<SaveToFileLogic>::create()->save(document(), fileName);
    }
    [[nodiscard]] static EDocumentState savedState()
    {
        return documentjson::read(files::contents(openFile()), openFile())->getState();
    }
};

TEST_F(SaveToFileLogicTest, EmptyNameIsTheOpenDocument)
{
    whenSaved();
    EXPECT_EQ(files::contents(openFile()), documentjson::write(*document()));
    EXPECT_TRUE(files::isPrivate(openFile()));
}

class SavedAgainTest : public SaveToFileLogicTest
{
protected:
    SavedAgainTest()
    {
        whenSaved();
        m_written = fileNumber();
        // Held open, so that its number is not given again.
        m_held.open(QIODevice::ReadOnly);
    }

    /// Whether the last save has put a new file in the old one's place.
    [[nodiscard]] bool thenWritten() const { return fileNumber() != m_written; }

private:
    [[nodiscard]] static ino_t fileNumber()
    {
        struct stat status
        { };
        return ::stat(QFile::encodeName(openFile()).constData(), &status) == 0 ? status.st_ino : 0;
    }

    ino_t m_written = 0;
    QFile m_held{openFile()};
};

TEST_F(SavedAgainTest, UnchangedDocumentIsNotWritten)
{
    whenSaved();
    EXPECT_FALSE(thenWritten());
}

TEST_F(SavedAgainTest, ChangedDocumentIsWritten)
{
    document()->setChequeText(u"changed"_s);
    whenSaved();
    EXPECT_TRUE(thenWritten());
}

TEST_F(SavedAgainTest, DocumentWhoseFileIsGoneIsWritten)
{
    QFile::remove(openFile());
    whenSaved();
    EXPECT_EQ(files::contents(openFile()), documentjson::write(*document()));
}

TEST_F(SavedAgainTest, DocumentWhoseFileIsAnotherOneByNowIsWritten)
{
    files::put(openFile(), "something else");
    whenSaved();
    EXPECT_EQ(files::contents(openFile()), documentjson::write(*document()));
}

// That it is there says nothing of whether it was synced.
TEST_F(SavedAgainTest, DocumentThatSomebodyElseHasWrittenIsWritten)
{
    whenSaved(u"other.json"_s);
    whenSaved();
    EXPECT_TRUE(thenWritten());
}

TEST_F(SavedAgainTest, ContentsThatSomebodyElseHasPutThereAreWritten)
{
    document()->setChequeText(u"changed"_s);
    files::put(openFile(), documentjson::write(*document()));
    whenSaved();
    EXPECT_TRUE(thenWritten());
}

TEST_F(SavedAgainTest, DocumentWhoseWritingFailedIsWritten)
{
    const QString temporary = openFile() + u".new"_s;
    ASSERT_TRUE(QDir().mkdir(temporary));
    const QString before = document()->getChequeText();
    document()->setChequeText(u"changed"_s);
    EXPECT_THROW(whenSaved(), BasicException);
    ASSERT_TRUE(QDir().rmdir(temporary));
    document()->setChequeText(before);
    whenSaved();
    EXPECT_TRUE(thenWritten());
}

TEST_F(SaveToFileLogicTest, NameIsAFileOfTheStateFolder)
{
    whenSaved(u"other.json"_s);
    EXPECT_EQ(files::namesIn(stateFolder()), QStringList{u"other.json"_s});
}

TEST_F(SaveToFileLogicTest, StateFolderIsMadeWhereItIsMissing)
{
    Singleton<StateFolder>::instance()->setPath(stateFolder() + u"/below"_s);
    whenSaved();
    EXPECT_TRUE(QFile::exists(openFile()));
    EXPECT_TRUE(files::isPrivate(stateFolder() + u"/below"_s));
}

TEST_F(SaveToFileLogicTest, ClosedDocumentReplacesItselfWhileItIsStillThere)
{
    whenSaved();
    document()->setState(EDocumentState::Closed);
    whenSaved();
    EXPECT_EQ(savedState(), EDocumentState::Closed);
}

TEST_F(SaveToFileLogicTest, DocumentThatTheTillHasDroppedDoesNotComeBack)
{
    for (const auto state : {EDocumentState::Closed, EDocumentState::Cancelled}) {
        document()->setState(state);
        whenSaved();
        EXPECT_FALSE(QFile::exists(openFile()));
    }
}

TEST_F(SaveToFileLogicTest, ClosedDocumentDoesNotReplaceTheNextOne)
{
    const auto closed = document();
    closed->setState(EDocumentState::Closed);
    givenCurrentDocument(EDocumentType::Sale, u"18"_s);
    whenSaved();
    MockFactory<SaveToFileLogic>::create()->save(closed, {});
    EXPECT_EQ(files::contents(openFile()), documentjson::write(*document()));
}

TEST_F(SaveToFileLogicTest, SameNumberOpenedAtAnotherTimeIsAnotherDocument)
{
    whenSaved();
    document()->setCorrelationId(u"two"_s);
    document()->setState(EDocumentState::Closed);
    whenSaved();
    EXPECT_EQ(savedState(), EDocumentState::Open);
}

TEST_F(SaveToFileLogicTest, FileThatCannotBeReadIsLeftAsItIs)
{
    files::put(openFile(), "damaged");
    document()->setState(EDocumentState::Closed);
    EXPECT_THROW(whenSaved(), BasicException);
    EXPECT_EQ(files::contents(openFile()), "damaged");
}

TEST_F(SaveToFileLogicTest, OpenDocumentThatIsHeldStaysAsItIs)
{
    whenSaved();
    const QByteArray before = files::contents(openFile());
    document()->setChequeText(u"changed"_s);
    {
        const OpenDocumentHold outer;
        {
            const OpenDocumentHold inner;
        }
        whenSaved();
        EXPECT_EQ(files::contents(openFile()), before);
    }
    whenSaved();
    EXPECT_NE(files::contents(openFile()), before);
}

TEST_F(SaveToFileLogicTest, OtherFilesAreWrittenWhileTheOpenDocumentIsHeld)
{
    const OpenDocumentHold hold;
    whenSaved(u"other.json"_s);
    EXPECT_EQ(files::namesIn(stateFolder()), QStringList{u"other.json"_s});
}

TEST_F(SaveToFileLogicTest, FailureIsToldToTheCashier)
{
    try {
        whenSaved(u"none/document.json"_s);
        FAIL() << "saved into a folder that is not there";
    } catch (const BasicException &error) {
        EXPECT_EQ(error.tr().id(), u"documentNotSaved"_s);
        EXPECT_THAT(error.what(), testing::HasSubstr("none/document.json"));
    }
}

} // namespace

// Which objects describe a document to masks.

#include "host/documents/documentlogic.h"
#include "tests/support/hostfixture.h"

#include <gtest/gtest.h>

namespace {

class DocumentLogicTest : public testing::Test, public HostFixture
{
protected:
    static QStringList namesOf(const QList<QObject *> &objects)
    {
        QStringList names;
        for (const QObject *object : objects)
            names.append(object->objectName());
        return names;
    }

    DocumentLogic logic;
};

TEST_F(DocumentLogicTest, WithoutADocumentThereIsNothing)
{
    EXPECT_TRUE(logic.getObjects({}).isEmpty());
}

TEST_F(DocumentLogicTest, NoDocumentGivenMeansTheCurrentOne)
{
    givenCurrentDocument();
    EXPECT_EQ(logic.getObjects({}), QList<QObject *>{document().data()});
}

TEST_F(DocumentLogicTest, GivenDocumentGoesBeforeTheCurrentOne)
{
    givenCurrentDocument();
    const auto other
        = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, QStringLiteral("99"));
    EXPECT_EQ(logic.getObjects(other), QList<QObject *>{other.data()});
}

TEST_F(DocumentLogicTest, ClientOfTheCardStandsBesideTheDocument)
{
    givenCurrentDocument();
    givenCard()->getCard()->setClient(QSharedPointer<Client>::create());
    EXPECT_EQ(namesOf(logic.getObjects({})),
        (QStringList{QStringLiteral("document"), QStringLiteral("client")}));
}

} // namespace

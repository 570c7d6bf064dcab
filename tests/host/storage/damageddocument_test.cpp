// Files that are no document, or none of this version: refused with the place and a remedy.

#include "host/storage/documentjson.h"
#include "host/storage/storageerror.h"
#include "tests/support/hostfixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class DamagedDocumentTest : public testing::Test, public HostFixture
{
protected:
    DamagedDocumentTest()
    {
        givenCurrentDocument();
        givenCard();
        givenPosition(u"1001"_s, 45.9);
        document()->setStoredValue(u"group"_s, u"key"_s, 1);
        file = QJsonDocument::fromJson(documentjson::write(*document())).object();
    }

    static std::string errorOf(const QByteArray &contents)
    {
        try {
            static_cast<void>(documentjson::read(contents, u"state/document.json"_s));
        } catch (const StorageError &error) {
            return error.what();
        }
        return "read without an error";
    }
    [[nodiscard]] std::string errorOf(const QJsonObject &members) const
    {
        return errorOf(QJsonDocument(members).toJson());
    }
    /// The error after a member was given another value.
    [[nodiscard]] std::string errorWith(const QString &name, const QJsonValue &value) const
    {
        QJsonObject changed = file;
        changed[name] = value;
        return errorOf(changed);
    }

    QJsonObject file;
};

TEST_F(DamagedDocumentTest, ErrorNamesTheFileAndWhatToDo)
{
    for (const QByteArray contents : {"", "{", "not JSON", "[]", "{}", "\0\0\0\0"}) {
        SCOPED_TRACE(contents.constData());
        EXPECT_THAT(errorOf(contents), testing::StartsWith("state/document.json: "));
        EXPECT_THAT(errorOf(contents), testing::HasSubstr("восстановите файл из копии"));
    }
}

TEST_F(DamagedDocumentTest, EveryShorterBeginningIsRefused)
{
    const QByteArray whole = documentjson::write(*document()).trimmed();
    for (qsizetype size = 0; size < whole.size(); ++size)
        ASSERT_THAT(errorOf(whole.left(size)), testing::HasSubstr("повреждён в байте")) << size;
}

TEST_F(DamagedDocumentTest, EveryMemberIsNeeded)
{
    const QStringList names = file.keys();
    for (const QString &name : names) {
        QJsonObject without = file;
        without.remove(name);
        EXPECT_THAT(errorOf(without), testing::HasSubstr("«/" + name.toStdString() + "»"));
    }
}

TEST_F(DamagedDocumentTest, UnknownMembersArePassedOver)
{
    EXPECT_EQ(errorWith(u"later"_s, 1), "read without an error");
}

TEST_F(DamagedDocumentTest, FormatOfAnotherVersionIsRefused)
{
    EXPECT_THAT(errorWith(u"format"_s, 2), testing::HasSubstr("«/format»: ожидается 1"));
    EXPECT_THAT(errorWith(u"format"_s, 0), testing::HasSubstr("«/format»: ожидается 1"));
}

TEST_F(DamagedDocumentTest, ValuesOfAnotherKindAreRefused)
{
    struct Row
    {
        QString name;
        QJsonValue value;
        const char *expected;
    };
    const QList<Row> rows{
        {u"type"_s, 2, "код вида документа"},
        {u"type"_s, 1.5, "целое число"},
        {u"type"_s, 4294967297.0, "целое число"},
        {u"number"_s, 17, "текст"},
        {u"state"_s, u"shut"_s, "open, closed или cancelled"},
        {u"opened"_s, u"yesterday"_s, "дата и время"},
        {u"nextPosnum"_s, 0, "номер следующей позиции от 1"},
        {u"nextPosnum"_s, 1'000'000'001, "номер следующей позиции от 1"},
        {u"positions"_s, 5, "массив"},
        {u"positions"_s, QJsonArray{5}, "объект"},
        {u"payments"_s, QJsonArray{QJsonObject{{u"kind"_s, u"cash"_s}, {u"amount"_s, u"1"_s}}},
            "число"},
        {u"pluginData"_s, QJsonObject{{u"group"_s, 5}}, "массив или объект"},
        {u"pluginData"_s, QJsonObject{{u"g"_s, QJsonObject{{u"k"_s, 5}}}}, "известного вида"},
        {u"pluginData"_s,
            QJsonObject{{u"g"_s, QJsonObject{{u"k"_s, QJsonObject{{u"date"_s, u"1.1.24"_s}}}}}},
            "дата"},
        {u"pluginData"_s,
            QJsonObject{{u"g"_s, QJsonObject{{u"k"_s, QJsonObject{{u"int64"_s, u"x"_s}}}}}},
            "целое число"},
        {u"pluginData"_s,
            QJsonObject{{u"g"_s, QJsonObject{{u"k"_s, QJsonObject{{u"double"_s, u"0xZ"_s}}}}}},
            "число"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_THAT(
            errorWith(row.name, row.value), testing::HasSubstr("/" + row.name.toStdString()));
        EXPECT_THAT(errorWith(row.name, row.value), testing::HasSubstr(row.expected));
    }
}

TEST_F(DamagedDocumentTest, ManyPositionsMayHaveBeenTakenOff)
{
    for (const int posnum : {1, 1'000'000'000})
        EXPECT_EQ(errorWith(u"nextPosnum"_s, posnum), "read without an error") << posnum;
}

TEST_F(DamagedDocumentTest, ImpactThatNamesACardThatIsNotThere)
{
    LoyaltyEffects effects;
    const auto detail = QSharedPointer<DocumentImpactDetail>::create();
    detail->setCardRecord(document()->getCardRecord(ECardMode::OnlineLoyalty));
    effects.bonusImpacts = {QSharedPointer<BonusImpact>::create(detail)};
    document()->setEffects(effects);
    file = QJsonDocument::fromJson(documentjson::write(*document())).object();
    EXPECT_THAT(errorWith(u"cards"_s, QJsonArray()),
        testing::HasSubstr("«/effects/bonusImpacts/0/detail/card»"));
}

} // namespace

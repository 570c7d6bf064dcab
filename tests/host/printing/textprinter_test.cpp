// Templates filled, printed to the receipts of the day and to the screen.

#include "host/framework/basicexception.h"
#include "tests/host/printing/printfixture.h"
#include "tests/host/storage/files.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString cutLine = u"- - - - - - - - - - - - - - - - - - - -\n"_s;

class TextPrinterTest : public testing::Test, public PrintFixture
{
protected:
    void givenTemplate(const QString &name, const QByteArray &contents)
    {
        const QString folder = stateFolder() + u"/templates"_s;
        ASSERT_TRUE(QDir().mkpath(folder));
        files::put(folder + u'/' + name + u".mustache"_s, contents);
        givenSetting(u"TextPrinter:templates"_s, folder);
    }
    static tr::Tr errorOf(const QString &templateName)
    {
        try {
            whenPrinted(templateName, {});
        } catch (const BasicException &error) {
            return error.tr();
        }
        return {};
    }
};

TEST_F(TextPrinterTest, PrintsToReceiptsAndScreen)
{
    whenTextPrinted(u"Спасибо"_s);
    EXPECT_EQ(receipts(), u"Спасибо\n"_s);
    EXPECT_EQ(screen(), QStringList{u"Спасибо\n"_s});
    EXPECT_TRUE(files::isPrivate(receiptFile()));
}

TEST_F(TextPrinterTest, LaterPrintsStandBehindEarlierOnes)
{
    whenTextPrinted(u"one"_s);
    whenTextPrinted(u"two\n"_s);
    EXPECT_EQ(receipts(), u"one\ntwo\n"_s);
}

TEST_F(TextPrinterTest, WorksWithoutAScreen)
{
    TextPrinter::setScreen({});
    whenTextPrinted(u"one"_s);
    EXPECT_EQ(receipts(), u"one\n"_s);
}

TEST_F(TextPrinterTest, CopiesAreCutOneByOne)
{
    whenTextPrinted(u"one"_s, 2, true);
    EXPECT_EQ(receipts(), u"one\n"_s + cutLine + u"one\n"_s + cutLine);
}

TEST_F(TextPrinterTest, NumberOfCopies)
{
    struct Row
    {
        int copies;
        int printed;
    };
    for (const Row row : {Row{TextPrinter::defaultCopies, 1}, Row{1, 1}, Row{3, 3}, Row{0, 0}}) {
        SCOPED_TRACE(row.copies);
        const auto before = receipts().count(u"one"_s);
        whenTextPrinted(u"one"_s, row.copies);
        EXPECT_EQ(receipts().count(u"one"_s) - before, row.printed);
    }
}

TEST_F(TextPrinterTest, FillsTextsAndNumbers)
{
    struct Row
    {
        QVariant value;
        QString printed;
    };
    const QList<Row> rows{
        {u"text"_s, u"text"_s},
        {u"<&\">'"_s, u"<&\">'"_s},
        {u"{{other}}"_s, u"{{other}}"_s},
        {u"two\nlines"_s, u"two\nlines"_s},
        {5, u"5"_s},
        {2.5, u"2.5"_s},
        {0.1, u"0.1"_s},
        {1000000.0, u"1000000"_s},
        {QVariant(), u""_s},
        {QString(), u""_s},
    };
    givenTemplate(u"shop"_s, "[{{value}}]{{missing}}");
    for (const Row &row : rows) {
        whenPrinted(u"shop"_s, {{u"value"_s, row.value}, {u"other"_s, u"filled"_s}});
        EXPECT_EQ(screen().last(), u'[' + row.printed + u"]\n"_s);
    }
}

TEST_F(TextPrinterTest, RepeatsSectionsForListsAndEntersMaps)
{
    givenTemplate(u"shop"_s, "{{#lines}}\n- {{.}}\n{{/lines}}\n{{#card}}\n{{number}}\n{{/card}}\n");
    whenPrinted(u"shop"_s,
        {{u"lines"_s, QStringList{u"one"_s, u"two"_s}},
            {u"card"_s, QVariantMap{{u"number"_s, u"29"_s}}}});
    EXPECT_EQ(screen().last(), u"- one\n- two\n29\n"_s);
}

TEST_F(TextPrinterTest, ASectionOnLinesOfItsOwnLeavesNoLineWhereItIsLeftOut)
{
    givenTemplate(u"shop"_s,
        "one\n{{#first}}\nfirst\n{{/first}}\n  {{#second}}\nsecond\n  {{/second}}  \ntwo\n"
        "{{^third}}\nthird\n{{/third}}\n\nthree\n{{#fourth}}\nfourth\n{{/fourth}}\n");
    whenPrinted(u"shop"_s,
        {{u"first"_s, false}, {u"second"_s, QVariantList()}, {u"third"_s, u"is there"_s}});
    EXPECT_EQ(screen().last(), u"one\ntwo\n\nthree\n"_s);
    whenPrinted(u"shop"_s, {{u"first"_s, true}, {u"second"_s, true}, {u"fourth"_s, true}});
    EXPECT_EQ(screen().last(), u"one\nfirst\nsecond\ntwo\nthird\n\nthree\nfourth\n"_s);
}

TEST_F(TextPrinterTest, EmptyValuesLeaveTheirSectionOut)
{
    givenTemplate(u"shop"_s, "{{#value}}there{{/value}}{{^value}}none{{/value}}");
    const QVariantList empty{QVariant(), u""_s, false, QVariantList(), QStringList()};
    for (const QVariant &value : empty) {
        whenPrinted(u"shop"_s, {{u"value"_s, value}});
        EXPECT_EQ(screen().last(), u"none\n"_s);
    }
    whenPrinted(u"shop"_s, {{u"value"_s, u"0"_s}});
    EXPECT_EQ(screen().last(), u"there\n"_s);
}

TEST_F(TextPrinterTest, FolderOfTheSettingGoesBeforeTheBuiltInTemplates)
{
    givenTemplate(u"korvelloyaltyonline_coupon"_s, "our own: {{Number}}");
    whenPrinted(u"korvelloyaltyonline_coupon"_s, {{u"Number"_s, u"1"_s}});
    EXPECT_EQ(screen().last(), u"our own: 1\n"_s);
}

TEST_F(TextPrinterTest, TemplateThatTheFolderHasNotIsTheBuiltInOne)
{
    givenTemplate(u"other"_s, "other");
    whenPrinted(u"korvelloyaltyonline_coupon"_s, {{u"Number"_s, u"1"_s}});
    EXPECT_TRUE(screen().last().contains(u"КУПОН"_s));
}

TEST_F(TextPrinterTest, CouponShowsNumberAndMessage)
{
    whenPrinted(u"korvelloyaltyonline_coupon"_s,
        {{u"Number"_s, u"9900000000018"_s}, {u"Message"_s, u"Скидка 10%\nна кофе"_s}});
    EXPECT_EQ(screen().last(),
        u"----------------------------------------\n"
        u"                  КУПОН\n"
        u"№ 9900000000018\n"
        u"\n"
        u"Скидка 10%\nна кофе\n"
        u"----------------------------------------\n"_s);
}

TEST_F(TextPrinterTest, MissingTemplateIsNamedWithTheFolders)
{
    givenTemplate(u"other"_s, "other");
    const tr::Tr error = errorOf(u"nowhere"_s);
    EXPECT_EQ(error.id(), u"printTemplateMissing"_s);
    EXPECT_TRUE(error.ru().contains(u"«nowhere»"_s));
    EXPECT_TRUE(error.ru().contains(stateFolder() + u"/templates"_s));
    EXPECT_FALSE(QFile::exists(receiptFile()));
}

TEST_F(TextPrinterTest, WrongTemplateIsNamedAndNotPrinted)
{
    givenTemplate(u"shop"_s, "{{#open}}never closed");
    EXPECT_EQ(errorOf(u"shop"_s).id(), u"printTemplateWrong"_s);
    EXPECT_TRUE(errorOf(u"shop"_s).ru().contains(u"«shop»"_s));
    EXPECT_FALSE(QFile::exists(receiptFile()));
}

TEST_F(TextPrinterTest, ReceiptsThatCannotBeWrittenAreAnError)
{
    ASSERT_TRUE(QDir().mkpath(receiptFile()));
    EXPECT_THROW(whenTextPrinted(u"one"_s), BasicException);
    EXPECT_TRUE(screen().isEmpty());
}

} // namespace

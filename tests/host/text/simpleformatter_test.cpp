#include "host/text/simpleformatter.h"
#include "tests/support/logcapture.h"

#include <QVariant>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class SimpleFormatterTest : public testing::Test
{
protected:
    SimpleFormatterTest()
    {
        m_document.setObjectName(u"document"_s);
        m_position.setObjectName(u"indexPrice5"_s);
    }
    QString expanded(const QString &mask)
    {
        return MockFactory<SimpleFormatter>::create()->format(
            mask, {nullptr, &m_document, &m_position}, SimpleFormatter::plain, m_resolved);
    }

    QObject m_document;
    QObject m_position;
    QMap<QString, QString> m_resolved;
};

TEST_F(SimpleFormatterTest, LeavesConstantTextAlone)
{
    for (const QString &mask :
        {u""_s, u"Касса 1"_s, u"$5"_s, u"a}b{c"_s, u"100%1"_s, u"$$"_s, u"$"_s}) {
        SCOPED_TRACE(mask.toStdString());
        EXPECT_EQ(expanded(mask), mask);
    }
}

TEST_F(SimpleFormatterTest, TakesAPropertyOfTheFirstObjectThatHasIt)
{
    m_document.setProperty("shop", u"7"_s);
    m_position.setProperty("shop", u"8"_s);
    m_position.setProperty("till", u"9"_s);

    EXPECT_EQ(expanded(u"S${shop}-${till}."_s), u"S7-9."_s);
}

TEST_F(SimpleFormatterTest, TakesAPropertyOfTheObjectOfThatName)
{
    m_document.setProperty("price", 10);
    m_position.setProperty("price", 8.5);

    EXPECT_EQ(expanded(u"${indexPrice5.price}/${document.price}"_s), u"8.5/10"_s);
}

TEST_F(SimpleFormatterTest, GivesAnEmptyTextForWhatDoesNotResolve)
{
    const LogCapture log(u"poshost.formatter"_s);
    m_document.setProperty("shop", u"7"_s);

    EXPECT_EQ(expanded(u"<${none}${indexPrice5.shop}${other.shop}${}>"_s), u"<>"_s);
    EXPECT_EQ(log.lines().size(), 4);
    EXPECT_TRUE(log.has(u"DEBUG"_s, u"no object has what a mask asks for: indexPrice5.shop"_s));
}

TEST_F(SimpleFormatterTest, SaysNothingAboutWhatResolvesToAnEmptyText)
{
    const LogCapture log(u"poshost.formatter"_s);
    m_document.setProperty("shop", u""_s);

    EXPECT_EQ(expanded(u"<${shop}>"_s), u"<>"_s);
    EXPECT_TRUE(log.lines().isEmpty());
}

TEST_F(SimpleFormatterTest, WritesAnEscapedOpening)
{
    m_document.setProperty("shop", u"7"_s);

    EXPECT_EQ(expanded(u"$${shop} $$${shop}"_s), u"${shop} $${shop}"_s);
}

TEST_F(SimpleFormatterTest, TakesAnOpeningThatIsNeverClosedForText)
{
    m_document.setProperty("shop", u"7"_s);

    EXPECT_EQ(expanded(u"${shop} ${shop"_s), u"7 ${shop"_s);
}

TEST_F(SimpleFormatterTest, ExpandsNoPlaceholderThatAValueHolds)
{
    m_document.setProperty("shop", u"${till}"_s);
    m_document.setProperty("till", u"9"_s);

    EXPECT_EQ(expanded(u"${shop}"_s), u"${till}"_s);
}

TEST_F(SimpleFormatterTest, WritesValuesAsPeopleReadThem)
{
    const QList<std::pair<QVariant, QString>> rows{{0.1 + 0.2, u"0.3"_s}, {10.0, u"10"_s},
        {1234567.89, u"1234567.89"_s}, {0.001, u"0.001"_s}, {-2.5, u"-2.5"_s}, {2.5F, u"2.5"_s},
        {42, u"42"_s}, {true, u"true"_s}, {false, u"false"_s}, {u"текст"_s, u"текст"_s}};
    for (const auto &[value, written] : rows) {
        SCOPED_TRACE(written.toStdString());
        m_document.setProperty("value", value);
        EXPECT_EQ(expanded(u"${value}"_s), written);
    }
}

TEST_F(SimpleFormatterTest, TellsWhatEachPlaceholderBecame)
{
    m_document.setProperty("shop", u"7"_s);

    EXPECT_EQ(expanded(u"${shop} ${none} $${x}"_s), u"7  ${x}"_s);
    EXPECT_EQ(
        m_resolved, (QMap<QString, QString>{{u"${shop}"_s, u"7"_s}, {u"${none}"_s, QString()}}));
}

} // namespace

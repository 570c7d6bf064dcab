#include "host/xml/xmlutils.h"

#include <QList>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class XmlUtilsTest : public testing::Test
{
protected:
    QDomElement created(const QString &text)
    {
        return xmlutils::createTextElement(m_document, u"Name"_s, text);
    }
    void givenDocument(const QString &xml) { ASSERT_TRUE(m_document.setContent(xml)); }

    QDomDocument m_document;
};

TEST_F(XmlUtilsTest, CreatesAnElementWithOneTextChild)
{
    const QDomElement element = created(u"Хлеб & соль"_s);

    EXPECT_EQ(element.tagName(), u"Name"_s);
    EXPECT_EQ(element.childNodes().count(), 1);
    EXPECT_TRUE(element.firstChild().isText());
    EXPECT_EQ(element.text(), u"Хлеб & соль"_s);
    EXPECT_TRUE(element.parentNode().isNull());
}

TEST_F(XmlUtilsTest, CreatesATextChildForAnEmptyTextToo)
{
    for (const QString &text : {QString(), u""_s}) {
        EXPECT_EQ(created(text).childNodes().count(), 1);
        EXPECT_EQ(created(text).text(), u""_s);
    }
}

TEST_F(XmlUtilsTest, LeavesOutCharactersThatXmlCannotCarry)
{
    const QList<std::pair<QString, QString>> rows{
        {QString(u"a"_s + QChar(u'\0') + u"b"_s), u"ab"_s},
        {u"a\x01\x08\x0B\x0C\x0E\x1F"
         u"b"_s,
            u"ab"_s},
        {u"a\t\n\rb"_s, u"a\t\n\rb"_s},
        {u"a\x7F\x85"
         u"b"_s,
            u"a\x7F\x85"
            u"b"_s},
        {QString(u"a"_s + QChar(0xFFFE) + QChar(0xFFFF) + QChar(0xFFFD)),
            QString(u"a"_s + QChar(0xFFFD))},
        {QString(u"a"_s + QChar(0xD83D) + u"b"_s), u"ab"_s},
        {QString(u"a"_s + QChar(0xDE00) + QChar(0xD83D)), u"a"_s},
        {u"😀"_s, u"😀"_s},
    };
    for (const auto &[text, kept] : rows) {
        SCOPED_TRACE(kept.toStdString());
        EXPECT_EQ(created(text).text(), kept);
    }
}

TEST_F(XmlUtilsTest, WritesADocumentThatCanBeReadWhateverTheText)
{
    m_document.appendChild(created(u"a\x01<b>\uFFFE]]>"_s));

    QDomDocument read;
    EXPECT_TRUE(read.setContent(m_document.toByteArray()));
    EXPECT_EQ(read.documentElement().text(), u"a<b>]]>"_s);
}

TEST_F(XmlUtilsTest, AppendsElementsUnlessTheyAreNull)
{
    QDomElement parent = m_document.createElement(u"Parent"_s);
    xmlutils::appendNotNull(parent, {});
    xmlutils::appendNotNull(parent, created(u"x"_s));

    EXPECT_EQ(parent.childNodes().count(), 1);
}

TEST_F(XmlUtilsTest, TellsAnAbsentElementFromAnEmptyOne)
{
    givenDocument(u"<r><a></a><b/></r>"_s);

    EXPECT_TRUE(xmlutils::getValueByTag(m_document, u"none"_s, 0).isNull());
    for (const QString &tag : {u"a"_s, u"b"_s}) {
        EXPECT_FALSE(xmlutils::getValueByTag(m_document, tag, 0).isNull());
        EXPECT_TRUE(xmlutils::getValueByTag(m_document, tag, 0).isEmpty());
    }
}

TEST_F(XmlUtilsTest, CountsElementsInDocumentOrderAtAnyDepth)
{
    givenDocument(u"<r><i><a>1</a></i><a>2</a></r>"_s);

    EXPECT_EQ(xmlutils::getValueByTag(m_document, u"a"_s, 0), u"1"_s);
    EXPECT_EQ(xmlutils::getValueByTag(m_document, u"a"_s, 1), u"2"_s);
    EXPECT_TRUE(xmlutils::getValueByTag(m_document, u"a"_s, 2).isNull());
}

TEST_F(XmlUtilsTest, LooksOnlyInsideTheElementGiven)
{
    givenDocument(u"<r><a>1</a><i><a>2</a></i></r>"_s);
    const QDomElement inner = m_document.documentElement().firstChildElement(u"i"_s);

    EXPECT_EQ(xmlutils::getValueByTag(inner, u"a"_s, 0), u"2"_s);
    EXPECT_TRUE(xmlutils::getValueByTag(inner, u"i"_s, 0).isNull());
}

TEST_F(XmlUtilsTest, DoesNotMatchPrefixedElements)
{
    givenDocument(u"<r><p:a>1</p:a></r>"_s);

    EXPECT_TRUE(xmlutils::getValueByTag(m_document, u"a"_s, 0).isNull());
}

} // namespace

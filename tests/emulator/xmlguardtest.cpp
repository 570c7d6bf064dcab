#include "emulator/soap/xmlguard.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

QByteArray nested(qsizetype depth)
{
    return QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
}

QByteArray withAttributes(qsizetype count)
{
    return "<a" + QByteArray(" b='>'").repeated(count) + "/>";
}

TEST(XmlGuard, LetsHonestXmlThrough)
{
    for (const QByteArray &xml : {QByteArray(""), QByteArray("no XML"), QByteArray("<a"),
             QByteArray("<?xml version='1.0'?><!-- <!DOCTYPE --><a b=\"'<!DOCTYPE\"/>"),
             QByteArray("<a><![CDATA[<!DOCTYPE a>]]></a>"), QByteArray("</a></a>")}) {
        SCOPED_TRACE(xml.constData());
        EXPECT_EQ(complaintAboutXml(xml), QString());
    }
}

TEST(XmlGuard, StopsADoctype)
{
    EXPECT_TRUE(complaintAboutXml("<!DOCTYPE a><a/>").contains(u"DOCTYPE"));
    EXPECT_TRUE(complaintAboutXml("<!-- --><?p ?>\n<!DOCTYPE a [").contains(u"DOCTYPE"));
}

TEST(XmlGuard, StopsTheTwoHundredAndFiftySeventhLevel)
{
    EXPECT_EQ(complaintAboutXml(nested(256)), QString());
    EXPECT_TRUE(complaintAboutXml(nested(257)).contains(u"deeper than 256"));
}

TEST(XmlGuard, CountsOpenElementsOnly)
{
    EXPECT_EQ(complaintAboutXml("<r>" + nested(255).repeated(3) + "</r>"), QString());
    EXPECT_EQ(complaintAboutXml("<r>" + QByteArray("<a/>").repeated(1000) + "</r>"), QString());
}

TEST(XmlGuard, StopsTheTwoHundredAndFiftySeventhAttribute)
{
    EXPECT_EQ(complaintAboutXml(withAttributes(256)), QString());
    EXPECT_TRUE(complaintAboutXml(withAttributes(257)).contains(u"more than 256 attributes"));
}

QByteArray withNamespaces(qsizetype count)
{
    return "<r xmlns='u'>" + QByteArray("<a xmlns:p='u'>").repeated(count - 1);
}

TEST(XmlGuard, StopsTheSixtyFifthNamespace)
{
    EXPECT_EQ(complaintAboutXml(withNamespaces(64)), QString());
    EXPECT_TRUE(complaintAboutXml(withNamespaces(65)).contains(u"more than 64 namespaces"));
    EXPECT_EQ(complaintAboutXml("<r>" + QByteArray("<a b='xmlns'/>xmlns").repeated(65)), QString());
}

TEST(XmlGuard, CountsAllMarkupTogether)
{
    const QByteArray markup = "<a b='' c=''/><!-- < --><?p < ?><![CDATA[<]]><d></d>";
    constexpr int pieces = 8;
    const QByteArray most = markup.repeated(1'000'000 / pieces);
    EXPECT_EQ(complaintAboutXml(most), QString());
    for (const char *more : {"<a/>", "<!-- -->", "<?p?>", "<![CDATA[]]>", "</a>"}) {
        SCOPED_TRACE(more);
        EXPECT_TRUE(complaintAboutXml(most + more).contains(u"more than 1000000 tags"));
    }
    EXPECT_TRUE(complaintAboutXml(markup + most.left(most.size() - markup.size()) + "<a b=''/>")
                    .contains(u"more than 1000000 tags"));
}

} // namespace
} // namespace emulator

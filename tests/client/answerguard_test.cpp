#include "client/answerguard.h"
#include "tests/support/printers.h"

#include <QDomDocument>
#include <QStringConverter>

#include <gtest/gtest.h>

using namespace korvelLoyaltyOnline;
using namespace Qt::Literals::StringLiterals;

namespace {

enum class Coding
{
    Narrow,
    NarrowWithMark,
    LittleEndian,
    BigEndian,
    LittleEndianWithMark,
    BigEndianWithMark
};

const QList<Coding> allCodings = {Coding::Narrow, Coding::NarrowWithMark, Coding::LittleEndian,
    Coding::BigEndian, Coding::LittleEndianWithMark, Coding::BigEndianWithMark};

QByteArray encoded(const QString &text, QStringConverter::Encoding encoding, bool mark)
{
    QStringEncoder encoder(
        encoding, mark ? QStringConverter::Flag::WriteBom : QStringConverter::Flag::Default);
    return encoder(text);
}

QByteArray encoded(const QString &text, Coding coding)
{
    switch (coding) {
    case Coding::Narrow:
        return encoded(text, QStringConverter::Utf8, false);
    case Coding::NarrowWithMark:
        return encoded(text, QStringConverter::Utf8, true);
    case Coding::LittleEndian:
        return encoded(text, QStringConverter::Utf16LE, false);
    case Coding::BigEndian:
        return encoded(text, QStringConverter::Utf16BE, false);
    case Coding::LittleEndianWithMark:
        return encoded(text, QStringConverter::Utf16LE, true);
    case Coding::BigEndianWithMark:
        return encoded(text, QStringConverter::Utf16BE, true);
    }
    return {};
}

QString repeated(const QString &text, int count)
{
    return text.repeated(count);
}

QString nested(int depth)
{
    return repeated(u"<a>"_s, depth) + repeated(u"</a>"_s, depth);
}

QString withAttributes(int count)
{
    QString attributes;
    for (int i = 0; i < count; ++i)
        attributes += u" a%1='1'"_s.arg(i);
    return u"<a><b"_s + attributes + u"/></a>"_s;
}

QString withElements(int count)
{
    return u"<a>"_s + repeated(u"<b/>"_s, count - 1) + u"</a>"_s;
}

QString declared(const QString &encoding)
{
    return u"<?xml version='1.0' encoding='%1'?><a>Ж</a>"_s.arg(encoding);
}

/// Why the answer is refused; empty when it passes.
QString refusalOf(const QByteArray &answer)
{
    const auto defect = findDefect(answer);
    return defect ? defect->text : QString();
}

QString refusalOf(const QString &answer)
{
    return refusalOf(answer.toUtf8());
}

void thenPasses(const QString &answer)
{
    for (const Coding coding : allCodings) {
        SCOPED_TRACE(static_cast<int>(coding));
        const QByteArray bytes = encoded(answer, coding);
        EXPECT_EQ(refusalOf(bytes), QString());
        EXPECT_TRUE(QDomDocument().setContent(bytes)) << "the reader must take it too";
    }
}

void thenIsRefused(const QString &answer, const QString &reason)
{
    for (const Coding coding : allCodings) {
        SCOPED_TRACE(static_cast<int>(coding));
        EXPECT_EQ(refusalOf(encoded(answer, coding)), reason);
    }
}

void thenIsAt(const QByteArray &answer, int line, int column)
{
    const auto defect = findDefect(answer);
    ASSERT_TRUE(defect);
    EXPECT_EQ(defect->line, line);
    EXPECT_EQ(defect->column, column);
}

const QString tooDeep = u"Elements are nested deeper than 256."_s;
const QString tooManyAttributes = u"More than 256 attributes on one element."_s;
const QString tooManyElements = u"More than 200000 elements."_s;
const QString tooManyNodes = u"More than 240000 nodes."_s;
const QString tooManyReferences = u"More than 1000000 references."_s;
const QString tooLongType = u"The document type is longer than 65536 characters."_s;
const QString entities = u"The document type declares entities."_s;

} // namespace

TEST(AnswerGuardTest, DepthIsLimited)
{
    thenPasses(nested(256));
    thenIsRefused(nested(257), tooDeep);
}

TEST(AnswerGuardTest, AnEmptyElementIsALevelOfItsOwn)
{
    const QString opened = repeated(u"<a>"_s, 255);
    const QString closed = repeated(u"</a>"_s, 255);
    thenPasses(opened + repeated(u"<b/>"_s, 3) + u"<b c='/'/><b></b>" + closed);
    thenIsRefused(opened + u"<b><c/></b>" + closed, tooDeep);
    thenIsRefused(opened + u"<b c='/'><c/></b>" + closed, tooDeep);
}

TEST(AnswerGuardTest, ElementsBesideOneAnotherAreNotNested)
{
    thenPasses(u"<r>"_s + repeated(u"<a></a>"_s, 300) + repeated(u"<a/>"_s, 300) + u"</r>"_s);
}

TEST(AnswerGuardTest, AttributesOfOneElementAreLimited)
{
    thenPasses(withAttributes(256));
    thenIsRefused(withAttributes(257), tooManyAttributes);
}

TEST(AnswerGuardTest, AttributesOfSeveralElementsAreNotAddedUp)
{
    const QString element = withAttributes(200);
    thenPasses(u"<r>"_s + element + element + u"</r>"_s);
}

TEST(AnswerGuardTest, EqualSignsInsideValuesAndTextsAreNotAttributes)
{
    const QString many = repeated(u"="_s, 300);
    thenPasses(u"<a b='%1\"' c=\"%1'\">%1</a>"_s.arg(many));
}

TEST(AnswerGuardTest, ElementsAreLimited)
{
    EXPECT_EQ(refusalOf(withElements(200'000)), QString());
    EXPECT_EQ(refusalOf(withElements(200'001)), tooManyElements);
}

TEST(AnswerGuardTest, AsManyElementsAsAllowedMayHaveAttributesToo)
{
    QString envelope = withElements(200'000);
    envelope.replace(u"<a>"_s, u"<a xmlns='b' xmlns:c='d'>"_s);
    EXPECT_EQ(refusalOf(envelope), QString());
}

TEST(AnswerGuardTest, ElementsAreLimitedInSixteenBitsToo)
{
    EXPECT_EQ(
        refusalOf(encoded(withElements(200'001), Coding::BigEndianWithMark)), tooManyElements);
}

TEST(AnswerGuardTest, WhateverTheReaderMakesANodeOfCounts)
{
    struct Row
    {
        QString node;
        int count; ///< of the document, of the node's element where it needs one, of the node
    };
    const QList<Row> rows = {{u"<!---->"_s, 1}, {u"<![CDATA[]]>"_s, 1}, {u"<?p?>"_s, 1},
        {u"<b c=''/>"_s, 5}, {u"<b c='' d=''>"_s + u"</b>"_s, 9}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.node.toStdString());
        const QString most = repeated(row.node, (240'000 - 1) / row.count);
        EXPECT_EQ(refusalOf(u"<r>"_s + most + u"</r>"_s), QString());
        EXPECT_EQ(refusalOf(u"<r>"_s + most + row.node + u"</r>"_s), tooManyNodes);
    }
}

TEST(AnswerGuardTest, ReferencesAreNodesOnlyWhereSomethingMayHaveDeclaredThem)
{
    const QString many = repeated(u"&b;"_s, 240'000);
    EXPECT_EQ(refusalOf(u"<a>"_s + many + u"</a>"_s), QString());
    const QString type = u"<!DOCTYPE a SYSTEM 'x'><a>"_s;
    EXPECT_EQ(refusalOf(type + many + u"</a>"_s), tooManyNodes);
    EXPECT_EQ(refusalOf(type + many), tooManyNodes);
    EXPECT_EQ(refusalOf(type + repeated(u"&b;"_s, 239'999) + u"</a>"_s), QString());
    const QString half = repeated(u"&b;"_s, 119'999);
    EXPECT_EQ(refusalOf(type + half + u"<c/>"_s + half + u"</a>"_s), QString());
}

TEST(AnswerGuardTest, ADocumentTypeMayNotDeclareEntities)
{
    const QList<QString> types = {
        u"[<!ENTITY b 'c'>]"_s,
        u"[\n<!ENTITY % b 'c'>]"_s,
        u"SYSTEM 'x' [<!ENTITY b SYSTEM 'c'>]"_s,
        u"[<!ELEMENT a ANY><!ENTITY b 'c'>]"_s,
        u"[<!ELEMENT a ANY ']>'><!ENTITY b 'c'>]"_s,
        u"[<!-- ' ]> --><!ENTITY b 'c'>]"_s,
        u"[<!----><!ENTITY b 'c'><!-- -->]"_s,
        u"[<?p ' ]> ?><!ENTITY b 'c'>]"_s,
    };
    for (const QString &type : types) {
        SCOPED_TRACE(type.toStdString());
        thenIsRefused(u"<!DOCTYPE a %1><a/>"_s.arg(type), entities);
    }
}

TEST(AnswerGuardTest, ADocumentTypeMayNotDeclareAttributes)
{
    const QString attributes = u"The document type declares attributes."_s;
    for (const QString &type :
        {u"[<!ATTLIST a b CDATA 'c'>]"_s, u"[<!ATTLIST a b CDATA #IMPLIED>]"_s,
            u"[<!ELEMENT a ANY>\n<!ATTLIST a xmlns CDATA 'u'>]"_s}) {
        SCOPED_TRACE(type.toStdString());
        thenIsRefused(u"<!DOCTYPE a %1><a/>"_s.arg(type), attributes);
    }
}

TEST(AnswerGuardTest, ADocumentTypeMayNotDeclareNotations)
{
    thenIsRefused(u"<!DOCTYPE a [<!NOTATION b SYSTEM 'c'>]><a/>"_s,
        u"The document type declares notations."_s);
}

TEST(AnswerGuardTest, ReferencesInTextsAndValuesAreLimitedTogether)
{
    const QString half = repeated(u"&lt;"_s, 500'000);
    const QString most = u"<a b='%1'>%1</a>"_s.arg(half);
    const QString hidden = u"<!--&--><![CDATA[&]]><?p &?>"_s;
    EXPECT_EQ(refusalOf(u"<r>"_s + most + hidden + u"</r>"_s), QString());
    for (const QString &oneMore : {u"&#1;"_s, u"<a b='&gt;'/>"_s})
        EXPECT_EQ(refusalOf(u"<r>"_s + most + oneMore + u"</r>"_s), tooManyReferences);
}

TEST(AnswerGuardTest, TheLengthOfADocumentTypeIsLimited)
{
    const auto type = [](const QString &filling) {
        return QString(u"<!DOCTYPE a SYSTEM '"_s + filling + u"' [ ]><a/>"_s);
    };
    const QString rest = u"<!DOCTYPE a SYSTEM '' [ ]"_s;
    const int longest = 64 * 1024 - static_cast<int>(rest.size());
    thenPasses(type(repeated(u"x"_s, longest)));
    thenIsRefused(type(repeated(u"x"_s, longest + 1)), tooLongType);
    for (const QString &declaration : {u"<!-- -->"_s, u"<?p?>"_s, u"<!ELEMENT a ANY>"_s, u"%b;"_s})
        thenIsRefused(u"<!DOCTYPE a [%1]><a/>"_s.arg(repeated(declaration, longest)), tooLongType);
    thenIsRefused(
        u"<!DOCTYPE a [%1<!ENTITY b 'c'>]><a/>"_s.arg(repeated(u"%b;"_s, longest)), tooLongType);
    const QString opening = u"<!DOCTYPE a ["_s;
    const QString filling = repeated(u" "_s, 64 * 1024 - static_cast<int>(opening.size()));
    thenIsRefused(opening + filling + u"<!ENTITY b 'c'>]><a/>"_s, entities);
}

TEST(AnswerGuardTest, ADocumentTypeFarBehindTheBeginningIsLikeAnyOther)
{
    const QString farBehind = u"<!--%1-->"_s.arg(repeated(u"x"_s, 64 * 1024));
    thenPasses(farBehind + u"<!DOCTYPE a [<!ELEMENT a ANY>]><a/>"_s);
    thenIsRefused(farBehind + u"<!DOCTYPE a [<!ENTITY b 'c'>]><a/>"_s, entities);
}

TEST(AnswerGuardTest, OtherDocumentTypesPass)
{
    const QList<QString> types = {
        u""_s,
        u"SYSTEM \"x>y[z\""_s,
        u"[ ]"_s,
        u"[<!ELEMENT a (#PCDATA)>]"_s,
        u"[<!-- <!ENTITY b 'c'> -->]"_s,
        u"[<?p <!ENTITY b 'c'> ?>]"_s,
        u"[<!-- ']> <!ATTLIST a x CDATA 'c'> -->]"_s,
        u"[<!-- don't -->]"_s,
        u"[<?p don't ?>]"_s,
    };
    for (const QString &type : types) {
        SCOPED_TRACE(type.toStdString());
        thenPasses(u"<!DOCTYPE a %1><a>&amp;&#65;</a>"_s.arg(type));
    }
}

TEST(AnswerGuardTest, TagsBehindADocumentTypeAreStillCounted)
{
    thenIsRefused(u"<!DOCTYPE a SYSTEM \"x'>\" [<!ELEMENT a ANY>]>"_s + nested(257), tooDeep);
}

TEST(AnswerGuardTest, WhatLooksLikeTagsInCommentsSectionsAndInstructionsDoesNotCount)
{
    const QString tags = repeated(u"<a>"_s, 300) + u"<!DOCTYPE a [<!ENTITY b 'c'>]>"_s;
    const QList<QString> contents = {
        u"<!-- %1 > ' -->"_s, u"<!--> %1 -->"_s, u"<![CDATA[ %1 ]] > ' ]]>"_s, u"<?p %1 > ' ?>"_s};
    for (const QString &content : contents) {
        SCOPED_TRACE(content.toStdString());
        thenPasses(u"<r>%1<b/></r>"_s.arg(content.arg(tags)));
    }
}

TEST(AnswerGuardTest, TagsBehindCommentsSectionsInstructionsAndValuesStillCount)
{
    const QList<QString> contents
        = {u"<!-- ' -- -->"_s, u"<!---->"_s, u"<![CDATA[ ' ]]>"_s, u"<![CDATA[]]>"_s, u"<?p ' ?>"_s,
            u"<?p?>"_s, u"<b c='>'/>"_s, u"<b c=\"'\"/>"_s, u"<b c='/>'></b >"_s, u"it's"_s};
    for (const QString &content : contents) {
        SCOPED_TRACE(content.toStdString());
        thenIsRefused(u"<r>%1%2</r>"_s.arg(content, nested(256)), tooDeep);
    }
}

TEST(AnswerGuardTest, FourEncodingsMayBeDeclaredInAnyCase)
{
    for (const QString &name : {u"UTF-8"_s, u"utf-8"_s, u"windows-1251"_s, u"Windows-1251"_s,
             u"ISO-8859-1"_s, u"iso-8859-1"_s}) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(refusalOf(declared(name)), QString());
        EXPECT_TRUE(QDomDocument().setContent(declared(name).toUtf8()));
    }
    for (const QString &name : {u"UTF-16"_s, u"utf-16"_s})
        for (const Coding coding : {Coding::LittleEndianWithMark, Coding::BigEndianWithMark}) {
            SCOPED_TRACE(name.toStdString());
            EXPECT_EQ(refusalOf(encoded(declared(name), coding)), QString());
            EXPECT_TRUE(QDomDocument().setContent(encoded(declared(name), coding)));
        }
}

TEST(AnswerGuardTest, WhatIsInNoQuotesDeclaresNothing)
{
    // The reader refuses both, which is its part.
    EXPECT_EQ(refusalOf(u"<?xml version='1.0' encoding=koi8-r?><a/>"_s), QString());
    EXPECT_EQ(refusalOf(u"<?xml version='1.0' encoding=~koi8-r~?><a/>"_s), QString());
}

TEST(AnswerGuardTest, OtherEncodingsAreRefused)
{
    for (const QString &name : {u"KOI8-R"_s, u"UTF-7"_s, u"UTF-32"_s, u"IBM037"_s, u"US-ASCII"_s,
             u"utf8"_s, u"cp1251"_s, u"UTF-16LE"_s, u""_s, u"ISO-8859-15"_s}) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(
            refusalOf(declared(name)), u"Encoding %1 is not accepted in these bytes."_s.arg(name));
    }
}

TEST(AnswerGuardTest, TheDeclarationMayBeWrittenInAnyWayThatXmlAllows)
{
    for (const QString &text : {u"<?xml version=\"1.0\" encoding=\"KOI8-R\"?><a/>"_s,
             u"<?xml\nversion = '1.0'\n encoding\t=\r\n'KOI8-R' standalone='yes' ?><a/>"_s})
        EXPECT_FALSE(refusalOf(text).isEmpty()) << text.toStdString();
    for (const QString &text : {u"<?xml version='1.0'?><a encoding='KOI8-R'/>"_s,
             u"<?xml version='1.0'?><?p encoding='KOI8-R'?><a/>"_s, u"<a/>"_s})
        EXPECT_EQ(refusalOf(text), QString()) << text.toStdString();
}

TEST(AnswerGuardTest, ADeclarationThatDoesNotFitTheBytesIsRefused)
{
    struct Row
    {
        QString encoding;
        Coding coding;
    };
    const QList<Row> rows = {{u"UTF-16"_s, Coding::Narrow}, {u"UTF-16"_s, Coding::NarrowWithMark},
        {u"UTF-8"_s, Coding::LittleEndianWithMark}, {u"windows-1251"_s, Coding::BigEndianWithMark},
        {u"ISO-8859-1"_s, Coding::LittleEndian}, {u"UTF-16"_s, Coding::BigEndian}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.encoding.toStdString());
        const QByteArray bytes = encoded(declared(row.encoding), row.coding);
        EXPECT_FALSE(refusalOf(bytes).isEmpty());
        EXPECT_FALSE(QDomDocument().setContent(bytes)) << "the reader would have taken it";
    }
}

TEST(AnswerGuardTest, BytesThatChangeTheirWidthBehindTheDeclarationAreRefused)
{
    const QByteArray head = "<?xml version='1.0' encoding='UTF-16'?>";
    EXPECT_FALSE(refusalOf(head + encoded(nested(257), Coding::LittleEndian)).isEmpty());
}

TEST(AnswerGuardTest, ThirtyTwoBitsAreRefused)
{
    for (const auto encoding : {QStringConverter::Utf32LE, QStringConverter::Utf32BE})
        for (const bool mark : {false, true})
            EXPECT_EQ(refusalOf(encoded(u"<a/>"_s, encoding, mark)),
                u"Encoding UTF-32 is not accepted."_s);
}

TEST(AnswerGuardTest, CharactersWithTheByteOfABracketAreText)
{
    // U+3C01 holds the byte of "<" as its high one, U+013C as its low one.
    for (const QString &bracket : {u"\u3C01"_s, u"\u013C"_s})
        thenPasses(u"<a b='%1'>%2</a>"_s.arg(bracket, repeated(bracket + u'>', 300)));
}

TEST(AnswerGuardTest, BrokenAnswersAreLeftToTheReader)
{
    for (const QByteArray &answer : {QByteArray(), QByteArray("x"), QByteArray("<"),
             QByteArray("<!--"), QByteArray("<![CDATA["), QByteArray("<?xml"), QByteArray("<?"),
             QByteArray("<!DOCTYPE a ["), QByteArray("<!DOCTYPE a [ '"), QByteArray("<!DOCTYPE"),
             QByteArray("<a b='"), QByteArray("<a b"), QByteArray("</"), QByteArray("<!"),
             QByteArray("</a></a>"), QByteArray("\xFF\xFE"), QByteArray("<\0a", 3)}) {
        SCOPED_TRACE(answer.toPercentEncoding().toStdString());
        EXPECT_EQ(refusalOf(answer), QString());
        EXPECT_FALSE(QDomDocument().setContent(answer));
    }
}

TEST(AnswerGuardTest, BrokenDocumentTypesDoNotOverwhelmIt)
{
    EXPECT_EQ(refusalOf(repeated(u"<!DOCTYPE a ["_s, 300'000)), tooLongType);
}

TEST(AnswerGuardTest, TheDefectSaysWhereItIs)
{
    struct Row
    {
        QString answer;
        int line;
        int column;
    };
    const QList<Row> rows = {
        {u"<r>\n <a/>\n  <b%1/></r>"_s.arg(repeated(u" c=''"_s, 257)), 3, 3},
        {u"<!DOCTYPE a [\n<!ELEMENT a ANY>\n <!ENTITY b 'c'>]>"_s, 3, 2},
        {declared(u"KOI8-R"_s), 1, 1},
    };
    for (const Row &row : rows) {
        const auto defect = findDefect(row.answer.toUtf8());
        ASSERT_TRUE(defect) << row.answer.toStdString();
        EXPECT_EQ(defect->line, row.line);
        EXPECT_EQ(defect->column, row.column);
    }
}

TEST(AnswerGuardTest, EveryLineBreakOfXmlIsOne)
{
    for (const QString &lineBreak : {u"\n"_s, u"\r"_s, u"\r\n"_s})
        thenIsAt(u"<r>%1%1 <b%2/></r>"_s.arg(lineBreak, repeated(u" c=''"_s, 257)).toUtf8(), 3, 2);
}

TEST(AnswerGuardTest, PlacesDoNotDependOnTheEncoding)
{
    // A character of two bytes, one of three, and one of four, which is two UTF-16 units.
    const QString tooDeepBehindOthers = u"<r>\nЖ\u2013\U0001F600"_s + nested(257);
    for (const Coding coding : allCodings) {
        SCOPED_TRACE(static_cast<int>(coding));
        thenIsAt(encoded(tooDeepBehindOthers, coding), 2, 770);
    }
}

TEST(AnswerGuardTest, PlacesAreThoseOfTheDeclaredEncoding)
{
    // Two characters of one byte each; read as UTF-8 they would be one.
    const QByteArray twoBytes = "\xD0\x96";
    for (const QByteArray &name : {"windows-1251"_ba, "ISO-8859-1"_ba}) {
        const QByteArray head = "<?xml version='1.0' encoding='" + name + "'?>\n<r>" + twoBytes;
        thenIsAt(head + nested(257).toLatin1(), 2, 771);
    }
    const QByteArray head = "<?xml version='1.0' encoding='UTF-8'?>\n<r>" + twoBytes;
    thenIsAt(head + nested(257).toLatin1(), 2, 770);
}

TEST(AnswerGuardTest, PlacesAreThoseOfTheReader)
{
    // The reader tells a place behind what it stumbles over, here one character.
    for (const Coding coding : allCodings) {
        SCOPED_TRACE(static_cast<int>(coding));
        const QString before = u"<r>\r\nЖ\u2013\U0001F600<b></b>"_s;
        int line = 0;
        int column = 0;
        EXPECT_FALSE(
            QDomDocument().setContent(encoded(before + u"<<"_s, coding), nullptr, &line, &column));
        thenIsAt(
            encoded(before + u"<b%1/>"_s.arg(repeated(u" c=''"_s, 257)), coding), line, column - 1);
    }
}

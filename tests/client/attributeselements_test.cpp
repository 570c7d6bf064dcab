#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class AttributeElementsTest : public ClientTest
{
protected:
    AttributeElementsTest()
    {
        givenCheque();
        m_position = givenPosition(u"A"_s, 10);
    }
    void givenSection(const QString &name, const QList<std::pair<QString, QString>> &settings)
    {
        for (const auto &[key, value] : settings)
            HostFixture::givenSetting(
                u"KorvelLoyaltyOnline.ExtendedAttributes.%1:%2"_s.arg(name, key), value);
    }
    /// All attributes as "key=value key=value", one text per element.
    QStringList whenFormed(const Values &data = {}) { return formed(data, m_position); }
    QStringList whenFormedForCheque(const Values &data) { return formed(data, {}); }
    QSharedPointer<GoodsItem> m_position;

private:
    QStringList formed(const Values &data, const QSharedPointer<GoodsItem> &position)
    {
        QDomDocument request;
        QStringList elements;
        for (const QDomElement &element :
            client().formExtendedAttributes(data, request, position)) {
            EXPECT_EQ(element.tagName(), u"ExtendedAttribute"_s);
            QStringList pairs;
            const auto children = childElements(element);
            for (qsizetype i = 0; i + 1 < children.size(); i += 2) {
                EXPECT_EQ(children[i].tagName(), u"Key"_s);
                EXPECT_EQ(children[i + 1].tagName(), u"Value"_s);
                pairs.append(children[i].text() + u'=' + children[i + 1].text());
            }
            elements.append(pairs.join(u' '));
        }
        return elements;
    }
};

} // namespace

TEST_F(AttributeElementsTest, StoredAttributesStandInTheOrderOfTheirKeys)
{
    EXPECT_EQ(whenFormed({{u"ExtendedAttributes"_s, Values{{u"B"_s, 2}, {u"A"_s, u"1"_s}}}}),
        QStringList({u"A=1"_s, u"B=2"_s}));
}

TEST_F(AttributeElementsTest, StoredAttributesSuppressConfiguredOnesAndOptions)
{
    givenSetting(u"sendAdditionalBarcodeMarkdown"_s, u"true"_s);
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    m_position->setExtendedOptions(u"x"_s);
    EXPECT_EQ(
        whenFormed({{u"ExtendedAttributes"_s, Values{{u"A"_s, u"1"_s}}}}), QStringList(u"A=1"_s));
}

TEST_F(AttributeElementsTest, AnEmptyStoredMapSuppressesNothing)
{
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    EXPECT_EQ(whenFormed({{u"ExtendedAttributes"_s, Values()}}), QStringList(u"Color=<red>"_s));
}

TEST_F(AttributeElementsTest, AtChequeLevelOnlyStoredAttributesAreSent)
{
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    EXPECT_EQ(whenFormedForCheque({{u"Summ"_s, 1.0}}), QStringList());
    EXPECT_EQ(whenFormedForCheque({{u"ExtendedAttributes"_s, Values{{u"A"_s, u"1"_s}}}}),
        QStringList(u"A=1"_s));
}

TEST_F(AttributeElementsTest, EachSectionIsOneElementWithItsPairsInOrderOfTheNames)
{
    givenSection(u"b"_s,
        {{u"key2"_s, u"Size"_s}, {u"value2"_s, u"XL"_s}, {u"key1"_s, u"Color"_s},
            {u"value1"_s, u"red"_s}});
    givenSection(u"a"_s, {{u"key"_s, u"Shape"_s}, {u"value"_s, u"round"_s}});
    EXPECT_EQ(whenFormed(), QStringList({u"Color=<red> Size=<XL>"_s, u"Shape=<round>"_s}));
}

TEST_F(AttributeElementsTest, OtherSectionsAreNotAttributes)
{
    HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes:key"_s, u"A"_s);
    HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes:value"_s, u"B"_s);
    HostFixture::givenSetting(u"Other.ExtendedAttributes.a:key"_s, u"A"_s);
    HostFixture::givenSetting(u"Other.ExtendedAttributes.a:value"_s, u"B"_s);
    EXPECT_EQ(whenFormed(), QStringList());
}

TEST_F(AttributeElementsTest, SectionsAreReadAtEachUse)
{
    EXPECT_EQ(whenFormed(), QStringList());
    givenSection(u"a"_s, {{u"key"_s, u"Shape"_s}, {u"value"_s, u"round"_s}});
    EXPECT_EQ(whenFormed(), QStringList(u"Shape=<round>"_s));
}

TEST_F(AttributeElementsTest, AnyKeyThatBeginsWithKeyCounts)
{
    givenSection(u"a"_s,
        {{u"keyboard"_s, u"A"_s}, {u"valueboard"_s, u"1"_s}, {u"keykey"_s, u"B"_s},
            {u"valuekey"_s, u"2"_s}, {u"monkey"_s, u"D"_s}, {u"Key"_s, u"C"_s},
            {u"value"_s, u"3"_s}});
    EXPECT_EQ(whenFormed(), QStringList(u"A=<1> B=<2>"_s));
}

TEST_F(AttributeElementsTest, APairWithoutNameOrTextIsSkippedWithALine)
{
    givenSection(u"a"_s,
        {{u"key1"_s, u"Color"_s}, {u"value1"_s, u"red"_s}, {u"key2"_s, u"Size"_s},
            {u"value2"_s, u""_s}, {u"key3"_s, u""_s}, {u"value3"_s, u"x"_s},
            {u"key4"_s, u"Missing"_s}});
    EXPECT_EQ(whenFormed(), QStringList(u"Color=<red>"_s));
    const QString line = u"Некорректное значение настройки атрибута "
                         "KorvelLoyaltyOnline.ExtendedAttributes.a:key%1"_s;
    EXPECT_EQ(logged(u"DEBUG"_s), QStringList({line.arg(2), line.arg(3), line.arg(4)}));
}

TEST_F(AttributeElementsTest, AMaskThatExpandsToNothingIsSkipped)
{
    givenMask(u"${none}"_s, u""_s);
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"${none}"_s}});
    EXPECT_EQ(whenFormed(), QStringList());
}

TEST_F(AttributeElementsTest, ASectionWithoutUsablePairsIsSkippedWithALine)
{
    givenSection(u"a"_s, {{u"value1"_s, u"red"_s}});
    EXPECT_EQ(whenFormed(), QStringList());
    EXPECT_EQ(logged(u"DEBUG"_s),
        QStringList(
            u"Все настройки в секции KorvelLoyaltyOnline.ExtendedAttributes.a некорректные"_s));
}

TEST_F(AttributeElementsTest, ALaterPairOfTheSameNameWins)
{
    givenSection(u"a"_s,
        {{u"key1"_s, u"Color"_s}, {u"value1"_s, u"red"_s}, {u"key2"_s, u"Color"_s},
            {u"value2"_s, u"blue"_s}});
    EXPECT_EQ(whenFormed(), QStringList(u"Color=<blue>"_s));
}

TEST_F(AttributeElementsTest, AMaskIsExpandedOverIndexPricesAndThePosition)
{
    const auto first = QSharedPointer<TmcIndexPrice>::create(5, 1.0);
    const auto second = QSharedPointer<TmcIndexPrice>::create(2, 1.0);
    m_position->setTmc(
        QSharedPointer<Tmc>::create(QList<QSharedPointer<TmcIndexPrice>>{first, second}));
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    whenFormed();
    ASSERT_EQ(formatter().expansions.size(), 1);
    const Expansion expansion = formatter().expansions.first();
    EXPECT_EQ(expansion.mask, u"red"_s);
    EXPECT_EQ(
        expansion.objects, QList<QObject *>({first.data(), second.data(), m_position.data()}));
    EXPECT_EQ(first->objectName(), u"indexPrice5"_s);
    EXPECT_EQ(second->objectName(), u"indexPrice2"_s);
    EXPECT_EQ(expansion.flags, 0);
    EXPECT_TRUE(expansion.resolved.isEmpty());
}

TEST_F(AttributeElementsTest, WithoutIndexPricesAMaskIsExpandedOverThePositionAlone)
{
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    whenFormed();
    EXPECT_EQ(formatter().expansions.value(0).objects, QList<QObject *>({m_position.data()}));
}

TEST_F(AttributeElementsTest, EachMaskHasAFormatterOfItsOwn)
{
    givenSection(u"a"_s,
        {{u"key1"_s, u"A"_s}, {u"value1"_s, u"1"_s}, {u"key2"_s, u"B"_s}, {u"value2"_s, u"2"_s}});
    whenFormed();
    EXPECT_EQ(formatter().made, 2);
}

TEST_F(AttributeElementsTest, OptionsAreSentPieceByPieceBehindTheSections)
{
    givenSetting(u"sendAdditionalBarcodeMarkdown"_s, u"true"_s);
    givenSection(u"a"_s, {{u"key"_s, u"Color"_s}, {u"value"_s, u"red"_s}});
    m_position->setExtendedOptions(u"a,,b "_s);
    EXPECT_EQ(whenFormed(),
        QStringList({u"Color=<red>"_s, u"extendedoptions=a"_s, u"extendedoptions="_s,
            u"extendedoptions=b "_s}));
}

TEST_F(AttributeElementsTest, EmptyOptionsAreNotSent)
{
    givenSetting(u"sendAdditionalBarcodeMarkdown"_s, u"true"_s);
    EXPECT_EQ(whenFormed(), QStringList());
}

TEST_F(AttributeElementsTest, OptionsAreNotSentUnlessConfigured)
{
    m_position->setExtendedOptions(u"a,b"_s);
    EXPECT_EQ(whenFormed(), QStringList());
}

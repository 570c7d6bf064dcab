#include "tests/client/clientfixture.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

class ItemsTest : public ClientTest
{
protected:
    ItemsTest() { givenCheque(); }
    QList<QDomElement> whenFormed() { return client().formItems(document(), m_request); }
    QString itemText(const QString &name) { return childText(whenFormed().value(0), name); }
    QString amountsOf(const QDomElement &item)
    {
        return childText(item, u"Summ"_s) % u' ' % childText(item, u"Discount"_s) % u' '
            % childText(item, u"SummDiscounted"_s);
    }
    QSharedPointer<GoodsItem> givenPositionWithPrices()
    {
        const auto position = givenPosition(u"A"_s, 10);
        position->setMinRetailPrice(7.5);
        const auto price = [](int code, double money) {
            return QSharedPointer<TmcIndexPrice>::create(code, money);
        };
        position->setTmc(QSharedPointer<Tmc>::create(
            QList<QSharedPointer<TmcIndexPrice>>{price(0, 3.25), price(2, 4.5)}));
        return position;
    }
    QDomDocument m_request;
};

/// Counts what is asked of it.
class CountingConfig : public Config
{
public:
    [[nodiscard]] QString getString(const QString &key, const QString &other) const override
    {
        ++lookUps;
        return Config::getString(key, other);
    }
    [[nodiscard]] QStringList getSections(const QString &pattern) const override
    {
        ++lookUps;
        return Config::getSections(pattern);
    }
    [[nodiscard]] QStringList getKeys(const QString &section) const override
    {
        ++lookUps;
        return Config::getKeys(section);
    }
    mutable int lookUps = 0;
};

} // namespace

TEST_F(ItemsTest, ADocumentWithoutPositionsHasNone)
{
    EXPECT_TRUE(whenFormed().isEmpty());
}

TEST_F(ItemsTest, APositionIsWrittenInItsOrder)
{
    givenPosition(u"A<1"_s, 10, 1.5);
    EXPECT_TRUE(isXml(whenFormed().value(0), uR"(<Item><PositionNumber>1</PositionNumber>
        <Article>A&lt;1</Article><Price>10.00</Price><Quantity>1.500</Quantity><Summ>15.00</Summ>
        <Discount>0.00</Discount><SummDiscounted>15.00</SummDiscounted><Mcp>0.00</Mcp></Item>)"_s));
}

TEST_F(ItemsTest, PositionsStandInTheDocumentsOrder)
{
    for (const int posnum : {10, 2, 1})
        givenPosition(u"A"_s, 1)->setPosnum(posnum);
    QStringList numbers;
    for (const QDomElement &item : whenFormed())
        numbers.append(childText(item, u"PositionNumber"_s));
    EXPECT_EQ(numbers, QStringList({u"10"_s, u"2"_s, u"1"_s}));
}

TEST_F(ItemsTest, AmountsHaveTwoDecimalsAndQuantitiesThree)
{
    const auto position = givenPosition(u"A"_s, 1234567.891, 0.12345);
    position->setSumn(-5);
    position->setSumb(1e9);
    EXPECT_EQ(itemText(u"Price"_s), u"1234567.89"_s);
    EXPECT_EQ(itemText(u"Quantity"_s), u"0.123"_s);
    EXPECT_EQ(itemText(u"Summ"_s), u"-5.00"_s);
    EXPECT_EQ(itemText(u"SummDiscounted"_s), u"1000000000.00"_s);
}

TEST_F(ItemsTest, ADiscountIsAPercentageOfTheSums)
{
    struct Row
    {
        double before;
        double after;
        double discount;
    };
    const QList<Row> rows = {{200, 150, 25}, {100, 90, 10}, {100, 99.996, 0}, {100, 100.004, 0},
        {100, 99.99, 0.01}, {100, 110, -10}, {0, 0, 0}, {0, 0.004, 0}, {90, 60, 100 - 6000 / 90.0}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.after);
        EXPECT_NEAR(client().calculateDiscount(row.before, row.after), row.discount, 1e-9);
    }
}

TEST_F(ItemsTest, ADiscountIsNotRounded)
{
    EXPECT_EQ(client().calculateDiscount(3, 2), 100 - 2 * 100.0 / 3);
}

TEST_F(ItemsTest, ADiscountOfNothingIsInfinite)
{
    EXPECT_TRUE(std::isinf(client().calculateDiscount(0, 50)));
    givenPosition(u"A"_s, 0)->setSumb(50);
    EXPECT_EQ(itemText(u"Discount"_s), u"-inf"_s);
}

TEST_F(ItemsTest, StoredFiguresWin)
{
    givenPosition(u"A"_s, 200)->setSumb(150);
    givenStored(u"positionsData"_s,
        {{u"1"_s, Values{{u"Summ"_s, 1.0}, {u"Discount"_s, u"2"_s}, {u"SummDiscounted"_s, 3.0}}}});
    EXPECT_EQ(amountsOf(whenFormed().value(0)), u"1.00 2.00 3.00"_s);
}

TEST_F(ItemsTest, EachStoredFigureCountsByItself)
{
    givenPosition(u"A"_s, 200)->setSumb(150);
    const QMap<QString, QString> expected
        = {{u"Summ"_s, u"7.00 25.00 150.00"_s}, {u"Discount"_s, u"200.00 7.00 150.00"_s},
            {u"SummDiscounted"_s, u"200.00 25.00 7.00"_s}, {u"summ"_s, u"200.00 25.00 150.00"_s}};
    for (auto row = expected.cbegin(); row != expected.cend(); ++row) {
        SCOPED_TRACE(row.key().toStdString());
        givenStored(u"positionsData"_s, {{u"1"_s, Values{{row.key(), 7.0}}}});
        EXPECT_EQ(amountsOf(whenFormed().value(0)), row.value());
    }
}

TEST_F(ItemsTest, AStoredFigureThatIsNoNumberIsZero)
{
    givenPosition(u"A"_s, 200)->setSumb(150);
    givenStored(u"positionsData"_s, {{u"1"_s, Values{{u"Discount"_s, u"x"_s}}}});
    EXPECT_EQ(amountsOf(whenFormed().value(0)), u"200.00 0.00 150.00"_s);
}

TEST_F(ItemsTest, APositionWithoutStoredFiguresTakesNoneOfItsNeighbours)
{
    givenPosition(u"A"_s, 10);
    givenPosition(u"B"_s, 20);
    givenStored(u"positionsData"_s,
        {{u"1"_s, Values{{u"Summ"_s, 1.0}, {u"ExtendedAttributes"_s, Values{{u"k"_s, u"v"_s}}}}}});
    const auto items = whenFormed();
    EXPECT_EQ(amountsOf(items.value(0)), u"1.00 0.00 10.00"_s);
    EXPECT_EQ(amountsOf(items.value(1)), u"20.00 0.00 20.00"_s);
    EXPECT_EQ(items.value(1).elementsByTagName(u"ExtendedAttribute"_s).size(), 0);
}

TEST_F(ItemsTest, AttributesStandBehindTheMinimumPrice)
{
    givenPosition(u"A"_s, 10);
    givenStored(u"positionsData"_s,
        {{u"1"_s, Values{{u"ExtendedAttributes"_s, Values{{u"k"_s, u"v"_s}, {u"l"_s, u"w"_s}}}}}});
    EXPECT_EQ(childNames(whenFormed().value(0)).mid(7),
        QStringList({u"Mcp"_s, u"ExtendedAttribute"_s, u"ExtendedAttribute"_s}));
}

TEST_F(ItemsTest, TheMinimumPriceDependsOnMarkdownAndIndexPrice)
{
    struct Row
    {
        QString minRetailPrice;
        QString index;
        QString options;
        QString minimumPrice;
    };
    const QList<Row> rows = {
        {u"-1"_s, u"-1"_s, u""_s, u"0.00"_s},
        {u"-1"_s, u"-1"_s, u"MARKDOWN"_s, u"0.00"_s},
        {u"-1"_s, u"2"_s, u"MARKDOWN"_s, u"4.50"_s},
        {u"-1"_s, u"2"_s, u""_s, u"4.50"_s},
        {u"-1"_s, u"0"_s, u""_s, u"3.25"_s},
        {u"-1"_s, u"1"_s, u""_s, u"0.00"_s},
        {u"0.01"_s, u"-1"_s, u"markdown"_s, u"7.50"_s},
        {u"0.01"_s, u"2"_s, u"x,12MarkDown34"_s, u"7.50"_s},
        {u"0.01"_s, u"2"_s, u"MARKDOW"_s, u"4.50"_s},
        {u"0.004"_s, u"2"_s, u"MARKDOWN"_s, u"4.50"_s},
        {u"0"_s, u"-1"_s, u"MARKDOWN"_s, u"0.00"_s},
    };
    const auto position = givenPositionWithPrices();
    for (const Row &row : rows) {
        SCOPED_TRACE(
            QString(row.minRetailPrice % u' ' % row.index % u' ' % row.options).toStdString());
        givenSetting(u"minRetailPriceForMarkdownPositions"_s, row.minRetailPrice);
        givenSetting(u"indexForMinRetailPrice"_s, row.index);
        position->setExtendedOptions(row.options);
        const Interface fresh;
        EXPECT_EQ(
            childText(fresh.formItems(document(), m_request).value(0), u"Mcp"_s), row.minimumPrice);
    }
}

TEST_F(ItemsTest, ANegativeIndexIsNeverLookedUp)
{
    givenSetting(u"indexForMinRetailPrice"_s, u"-1"_s);
    const auto odd = QSharedPointer<TmcIndexPrice>::create(-1, 3.0);
    givenPosition(u"A"_s, 10)
        ->setTmc(QSharedPointer<Tmc>::create(QList<QSharedPointer<TmcIndexPrice>>{odd}));
    EXPECT_EQ(itemText(u"Mcp"_s), u"0.00"_s);
}

TEST_F(ItemsTest, APositionWithoutGoodsRecordHasNoIndexPrice)
{
    givenSetting(u"indexForMinRetailPrice"_s, u"0"_s);
    givenPosition(u"A"_s, 10);
    EXPECT_EQ(itemText(u"Mcp"_s), u"0.00"_s);
}

TEST_F(ItemsTest, TheConfigurationIsAskedOnceForAllPositionsAndAnewForEachRequest)
{
    const auto config = QSharedPointer<CountingConfig>::create();
    Singleton<Config>::set(config);
    const QString section = u"KorvelLoyaltyOnline.ExtendedAttributes.a:%1"_s;
    config->set(section.arg(u"key"_s), u"Color"_s);
    config->set(section.arg(u"value"_s), u"red"_s);
    givenPosition(u"A"_s, 10);
    whenFormed();
    const int ofTheConstructorAndOne = config->lookUps;
    whenFormed();
    const int ofOne = config->lookUps - ofTheConstructorAndOne;
    EXPECT_GT(ofOne, 0);
    givenPosition(u"B"_s, 10);
    givenPosition(u"C"_s, 10);
    EXPECT_EQ(whenFormed().size(), 3);
    EXPECT_EQ(config->lookUps - ofTheConstructorAndOne, 2 * ofOne);
}

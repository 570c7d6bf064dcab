#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class ChequeAnswerTest : public ClientTest
{
protected:
    void whenRead(const QString &content)
    {
        client().fillRequestResult(
            parsed(u"<Envelope><ChequeResponse>" + content + u"</ChequeResponse></Envelope>"),
            m_result);
    }
    QVariant value(const QString &key) const { return m_result.value(key); }
    Values position(const QString &number) const
    {
        return value(u"Positions"_s).toMap().value(number).toMap();
    }
    static QString attribute(const QString &key, const QString &value)
    {
        return u"<ExtendedAttribute><Key>%1</Key><Value>%2</Value></ExtendedAttribute>"_s.arg(
            key, value);
    }
    Values m_result;
};

const QStringList textKeys = {u"AvailablePayment"_s, u"CardNormalActiveBalance"_s,
    u"ChargedStatusBonus"_s, u"ActiveChargedBonus"_s, u"TransactionID"_s, u"Processed"_s,
    u"VerificationCode"_s, u"CashierMessage"_s, u"ChequeMessage"_s};
const QStringList numberKeys = {u"WriteoffBonus"_s, u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s};
const QStringList positionKeys = {u"Summ"_s, u"Discount"_s, u"SummDiscounted"_s,
    u"ActiveChargedBonus"_s, u"ChargedStatusBonus"_s, u"WriteoffBonus"_s};

} // namespace

TEST_F(ChequeAnswerTest, TextsStayTexts)
{
    for (const QString &key : textKeys) {
        SCOPED_TRACE(key.toStdString());
        whenRead(u"<%1>007.50</%1>"_s.arg(key));
        EXPECT_EQ(value(key).typeId(), QMetaType::QString);
        EXPECT_EQ(value(key).toString(), u"007.50"_s);
    }
}

TEST_F(ChequeAnswerTest, AbsentTextsAreNullAndEmptyOnesAreNot)
{
    for (const QString &key : textKeys) {
        SCOPED_TRACE(key.toStdString());
        whenRead({});
        EXPECT_TRUE(m_result.contains(key));
        EXPECT_EQ(value(key).typeId(), QMetaType::QString);
        EXPECT_TRUE(value(key).toString().isNull());
        whenRead(u"<%1/>"_s.arg(key));
        EXPECT_FALSE(value(key).toString().isNull());
    }
}

TEST_F(ChequeAnswerTest, NumbersAreNumbersAndZeroWhereThereIsNone)
{
    const QMap<QString, double> texts
        = {{u"<%1>007.50</%1>"_s, 7.5}, {u"<%1>x</%1>"_s, 0.0}, {u"<%1/>"_s, 0.0}, {u"%1"_s, 0.0}};
    for (const QString &key : numberKeys)
        for (auto row = texts.cbegin(); row != texts.cend(); ++row) {
            SCOPED_TRACE(QString(key % row.key()).toStdString());
            whenRead(row.key().arg(key));
            EXPECT_EQ(value(key), QVariant(row.value()));
            EXPECT_EQ(value(key).typeId(), QMetaType::Double);
        }
}

TEST_F(ChequeAnswerTest, AnEmptyAnswerGivesExactlyTheKeysThatAreAlwaysThere)
{
    whenRead({});
    QStringList expected
        = textKeys + numberKeys + QStringList({u"Positions"_s, u"ApplicableCoupons"_s});
    expected.sort();
    EXPECT_EQ(m_result.keys(), expected);
    EXPECT_TRUE(value(u"Positions"_s).toMap().isEmpty());
    EXPECT_EQ(value(u"Positions"_s).typeId(), QMetaType::QVariantMap);
    EXPECT_EQ(value(u"ApplicableCoupons"_s).typeId(), QMetaType::QStringList);
}

TEST_F(ChequeAnswerTest, OtherKeysOfTheMapStay)
{
    m_result = {{u"Other"_s, 1}, {u"Summ"_s, 5.0}, {u"ExtendedAttributes"_s, Values{{u"a"_s, 1}}}};
    whenRead(u"<Summ>7</Summ>"_s);
    EXPECT_EQ(value(u"Other"_s), QVariant(1));
    EXPECT_EQ(value(u"Summ"_s), QVariant(7.0));
    EXPECT_EQ(value(u"ExtendedAttributes"_s).toMap().size(), 1);
}

TEST_F(ChequeAnswerTest, TheFirstElementInTheWholeAnswerCounts)
{
    whenRead(u"<Item><PositionNumber>1</PositionNumber><Summ>5</Summ></Item><Summ>7</Summ>"_s);
    EXPECT_EQ(value(u"Summ"_s), QVariant(5.0));
}

TEST_F(ChequeAnswerTest, PrefixedElementsDoNotCount)
{
    whenRead(u"<x:Summ xmlns:x='urn:x'>5</x:Summ><Summ>7</Summ>"_s);
    EXPECT_EQ(value(u"Summ"_s), QVariant(7.0));
}

TEST_F(ChequeAnswerTest, OtherElementsAreNobodysWhateverTheirLength)
{
    whenRead({});
    const Values none = m_result;
    constexpr int longerThanAnyName = 40;
    for (int length = 1; length <= longerThanAnyName; ++length) {
        SCOPED_TRACE(length);
        whenRead(u"<%1>7</%1>"_s.arg(QString(length, u'A')));
        EXPECT_EQ(m_result, none);
    }
}

TEST_F(ChequeAnswerTest, TheChequeMessageEndsAtTheDelimiter)
{
    whenRead(u"<ChequeMessage> Спасибо \u2013\u2013 123</ChequeMessage>"_s);
    EXPECT_EQ(value(u"ChequeMessage"_s), QVariant(u"Спасибо"_s));
}

TEST_F(ChequeAnswerTest, TheCashierMessageStaysAsItIs)
{
    whenRead(u"<CashierMessage> A\u2013\u2013B </CashierMessage>"_s);
    EXPECT_EQ(value(u"CashierMessage"_s), QVariant(u" A\u2013\u2013B "_s));
}

TEST_F(ChequeAnswerTest, PositionFiguresAreNumbers)
{
    QString figures;
    for (const QString &key : positionKeys)
        figures += u"<%1>1.5</%1>"_s.arg(key);
    whenRead(u"<Items><Item><PositionNumber>3</PositionNumber>" + figures + u"</Item></Items>");
    EXPECT_EQ(position(u"3"_s).size(), positionKeys.size());
    for (const QString &key : positionKeys) {
        EXPECT_EQ(position(u"3"_s).value(key), QVariant(1.5)) << key.toStdString();
        EXPECT_EQ(position(u"3"_s).value(key).typeId(), QMetaType::Double) << key.toStdString();
    }
}

TEST_F(ChequeAnswerTest, APositionWithoutFiguresHasZeros)
{
    whenRead(u"<Item><PositionNumber>3</PositionNumber></Item>"_s);
    for (const QString &key : positionKeys)
        EXPECT_EQ(position(u"3"_s).value(key), QVariant(0.0)) << key.toStdString();
}

TEST_F(ChequeAnswerTest, ALaterPositionOfTheSameNumberReplacesTheEarlier)
{
    whenRead(u"<Item><PositionNumber>3</PositionNumber><Summ>1</Summ>"_s + attribute(u"A"_s, u"1"_s)
        + u"</Item><Item><PositionNumber>3</PositionNumber><Summ>2</Summ></Item>"_s);
    EXPECT_EQ(position(u"3"_s).value(u"Summ"_s), QVariant(2.0));
    EXPECT_FALSE(position(u"3"_s).contains(u"ExtendedAttributes"_s));
}

TEST_F(ChequeAnswerTest, APositionWithoutNumberStandsUnderTheEmptyText)
{
    whenRead(u"<Item><Summ>1</Summ></Item>"_s);
    EXPECT_EQ(value(u"Positions"_s).toMap().keys(), QStringList(u""_s));
}

TEST_F(ChequeAnswerTest, AnAttributeOfAPositionIsThatPositionsOnly)
{
    whenRead(u"<Item><PositionNumber>3</PositionNumber><Deep>"_s + attribute(u"A"_s, u"1"_s)
        + u"</Deep>"_s + attribute(u"B"_s, u"2"_s) + u"</Item>"_s);
    EXPECT_FALSE(m_result.contains(u"ExtendedAttributes"_s));
    EXPECT_EQ(position(u"3"_s).value(u"ExtendedAttributes"_s).toMap(),
        (Values{{u"A"_s, u"1"_s}, {u"B"_s, u"2"_s}}));
}

TEST_F(ChequeAnswerTest, AttributesOfTheChequeAreDirectChildren)
{
    whenRead(attribute(u"A"_s, u"1"_s) + u"<Deep>" + attribute(u"B"_s, u"2"_s) + u"</Deep>"
        + attribute(u"C"_s, u"3"_s) + u"<extendedAttribute/>");
    EXPECT_EQ(value(u"ExtendedAttributes"_s).toMap(), (Values{{u"A"_s, u"1"_s}, {u"C"_s, u"3"_s}}));
}

TEST_F(ChequeAnswerTest, OnlyTheFirstChequeResponseHasAttributes)
{
    client().fillRequestResult(parsed(u"<a><ChequeResponse/><ChequeResponse>"
                                   + attribute(u"A"_s, u"1"_s) + u"</ChequeResponse></a>"),
        m_result);
    EXPECT_FALSE(m_result.contains(u"ExtendedAttributes"_s));
}

TEST_F(ChequeAnswerTest, AnAnswerWithoutChequeResponseHasNoAttributes)
{
    EXPECT_TRUE(client()
                    .createExtendedAttributes(parsed(u"<a>" + attribute(u"A"_s, u"1"_s) + u"</a>"))
                    .isEmpty());
}

TEST_F(ChequeAnswerTest, ALaterAttributeOfTheSameKeyWinsAndAKeyMayBeMissing)
{
    whenRead(attribute(u"A"_s, u"1"_s) + attribute(u"A"_s, u"2"_s)
        + u"<ExtendedAttribute><Value>3</Value></ExtendedAttribute>");
    EXPECT_EQ(value(u"ExtendedAttributes"_s).toMap(), (Values{{u"A"_s, u"2"_s}, {u""_s, u"3"_s}}));
}

TEST_F(ChequeAnswerTest, AnAttributeWithoutValueIsAText)
{
    Values attributes;
    client().fillExtendedAttribute(
        parsed(u"<ExtendedAttribute><Key>A</Key></ExtendedAttribute>"_s).documentElement(),
        attributes);
    EXPECT_EQ(attributes.value(u"A"_s).typeId(), QMetaType::QString);
    EXPECT_EQ(attributes.size(), 1);
}

TEST_F(ChequeAnswerTest, ApplicableCouponsAreThoseWithCodeOne)
{
    struct Row
    {
        QString code;
        QString number;
        QString emission;
        QStringList listed;
    };
    const QList<Row> rows = {
        {u"1"_s, u"N"_s, u"E"_s, {u"N"_s}},
        {u"1"_s, u""_s, u"E"_s, {u"E"_s}},
        {u"1"_s, u""_s, u""_s, {u""_s}},
        {u"0"_s, u"N"_s, u"E"_s, {}},
        {u"2"_s, u"N"_s, u"E"_s, {}},
        {u"1.0"_s, u"N"_s, u"E"_s, {}},
        {u""_s, u"N"_s, u"E"_s, {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(QString(row.code % u' ' % row.number).toStdString());
        whenRead(u"<Coupon><Number>%1</Number><EmissionID>%2</EmissionID><ApplicabilityCode>%3"
                 "</ApplicabilityCode></Coupon>"_s.arg(row.number, row.emission, row.code));
        EXPECT_EQ(value(u"ApplicableCoupons"_s).toStringList(), row.listed);
    }
}

TEST_F(ChequeAnswerTest, ApplicableCouponsStandInTheAnswersOrder)
{
    const QString coupon
        = u"<Coupon><Number>%1</Number><ApplicabilityCode>1</ApplicabilityCode></Coupon>"_s;
    whenRead(coupon.arg(u"B"_s) + u"<Deep>" + coupon.arg(u"A"_s) + u"</Deep>");
    EXPECT_EQ(value(u"ApplicableCoupons"_s).toStringList(), QStringList({u"B"_s, u"A"_s}));
}

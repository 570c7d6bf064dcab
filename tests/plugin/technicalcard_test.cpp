#include "plugin/technicalcard.h"
#include "tests/plugin/pluginfixture.h"

#include <QRegularExpression>
#include <QSet>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

struct NumberRow
{
    const char *name;
    QString prefix;
    int suffixLength;
    quint64 random;
    QString expected;
};

void PrintTo(const NumberRow &row, std::ostream *stream)
{
    *stream << row.name;
}

class TechnicalCardNumber : public testing::TestWithParam<NumberRow>
{ };

TEST_P(TechnicalCardNumber, IsThePrefixAndTheLeadingDigits)
{
    const NumberRow &row = GetParam();
    EXPECT_EQ(technicalCardNumber(row.prefix, row.suffixLength, row.random), row.expected);
}

constexpr quint64 longest = std::numeric_limits<quint64>::max();

INSTANTIATE_TEST_SUITE_P(Rows, TechnicalCardNumber,
    testing::Values(NumberRow{"LeadingDigitsNotTrailingOnes", u"375"_s, 4, 1234567, u"3751234"_s},
        NumberRow{"ShortNumberIsPaddedInFront", u"375"_s, 4, 193, u"3750193"_s},
        NumberRow{"NoSuffix", u"375"_s, 0, 987, u"375"_s},
        NumberRow{"NoPrefix", QString(), 3, 9876, u"987"_s},
        NumberRow{"LongerThanAnyNumber", u"1"_s, 22, longest, u"10018446744073709551615"_s},
        NumberRow{"NegativeLengthTakesAllDigits", u"375"_s, -1, 9876, u"3759876"_s}),
    [](const auto &row) { return std::string(row.param.name); });

class TechnicalCard : public PluginFixture
{
protected:
    EContext::Result whenAdded()
    {
        return plugin().addTechnicalCard(control::Action(control::EActionType::Total));
    }
};

TEST_F(TechnicalCard, IsAttachedToASaleWithoutACard)
{
    givenCurrentDocument();
    EXPECT_EQ(whenAdded(), EContext::Result::Continue);
    const auto record = document()->getCardRecord(ECardMode::OnlineLoyalty);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->getCard()->getCardGroup()->getName(), u"Korvel Loyalty Online Technical"_s);
    const QRegularExpression pattern(u"^375\\d{4}$"_s);
    EXPECT_TRUE(pattern.match(record->getNumber().toString()).hasMatch());
    thenNothingHappened();
}

TEST_F(TechnicalCard, TakesNameAndNumberFromTheSettings)
{
    givenSetting(u"KorvelLoyaltyOnline:technicalCardPrefix"_s, u"88"_s);
    givenSetting(u"KorvelLoyaltyOnline:technicalCardSuffixLength"_s, u"0"_s);
    givenSetting(u"KorvelLoyaltyOnline:technicalCardName"_s, u"Гость"_s);
    givenCurrentDocument();
    whenAdded();
    const auto card = document()->getCardRecord(ECardMode::OnlineLoyalty)->getCard();
    EXPECT_EQ(card->getNumber(), u"88"_s);
    EXPECT_EQ(card->getCardGroup()->getName(), u"Гость"_s);
}

TEST_F(TechnicalCard, LeavesACardThatIsThereAlone)
{
    givenSaleWithCard();
    EXPECT_EQ(whenAdded(), EContext::Result::Continue);
    EXPECT_EQ(document()->getCardRecords().size(), 1);
    EXPECT_EQ(document()->getCardNumber(), u"2900000000017"_s);
}

TEST_F(TechnicalCard, IsNotForReturns)
{
    givenCurrentDocument(EDocumentType::ReturnWithoutSale);
    EXPECT_EQ(whenAdded(), EContext::Result::Continue);
    EXPECT_TRUE(document()->getCardRecords().isEmpty());
}

TEST_F(TechnicalCard, AnEmptyDeskIsLeftAlone)
{
    EXPECT_EQ(whenAdded(), EContext::Result::Continue);
}

TEST_F(TechnicalCard, EveryCallDrawsANewNumber)
{
    plugin().technicalCardSuffixLength = 15;
    QSet<QString> numbers;
    for (int call = 0; call < 20; ++call)
        numbers.insert(plugin().generateTechnicalCardNumber());
    EXPECT_EQ(numbers.size(), 20);
}

} // namespace

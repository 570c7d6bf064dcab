#include "tests/till/language/speakingtest.h"
#include "till/language/localetext.h"

using namespace Qt::StringLiterals;
using till::Language;

namespace {

// What a locale puts between thousands, and before "PM", looks like a blank and differs by version.
QString withPlainBlanks(QString text)
{
    for (const char16_t blank : {u'\u00a0', u'\u202f', u'\u2009'})
        text.replace(QChar(blank), u' ');
    return text;
}

class LocaleTextTest : public SpeakingTest
{
protected:
    const QDateTime m_moment{QDate(2026, 3, 9), QTime(18, 5, 59)};
};

TEST_F(LocaleTextTest, AmountsAndQuantitiesAreWrittenAsInRussia)
{
    till::speak(Language::Russian);
    EXPECT_EQ(withPlainBlanks(till::amountForEyes(1234567.5)), u"1 234 567,50"_s);
    EXPECT_EQ(till::amountForEyes(-0.5), u"-0,50"_s);
    EXPECT_EQ(till::quantityForEyes(0.125), u"0,125"_s);
    EXPECT_EQ(till::quantityForEyes(3.0), u"3"_s);
    EXPECT_EQ(withPlainBlanks(till::momentForEyes(m_moment)), u"09.03.2026 18:05"_s);
}

TEST_F(LocaleTextTest, AmountsAndQuantitiesAreWrittenAsInTheUnitedKingdom)
{
    till::speak(Language::English);
    EXPECT_EQ(till::amountForEyes(1234567.5), u"1,234,567.50"_s);
    EXPECT_EQ(till::amountForEyes(45.9), u"45.90"_s);
    EXPECT_EQ(till::quantityForEyes(0.125), u"0.125"_s);
    EXPECT_EQ(withPlainBlanks(till::momentForEyes(m_moment)), u"09/03/2026 18:05"_s);
}

} // namespace

#include "host/framework/tr.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <gtest/gtest.h>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Translates one id, and one with a count.
class OneTranslation : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(
        const char *, const char *id, const char *, int count) const override
    {
        if (QLatin1String(id) == u"korvelCount"_s)
            return count == 1 ? u"%1: %n cheque"_s : u"%1: %n cheques"_s;
        return QLatin1String(id) == u"korvelTest"_s ? u"%2 and %1"_s : QString();
    }
};

class TrTest : public testing::Test
{
protected:
    int m_count = 1;
    QByteArray m_name = "test";
    std::array<char *, 2> m_arguments{m_name.data(), nullptr};
    QCoreApplication m_application{m_count, m_arguments.data()};
};

TEST_F(TrTest, IsEmptyWithoutAText)
{
    EXPECT_TRUE(tr::Tr().isEmpty());
    EXPECT_TRUE(tr::Tr().ru().isEmpty());
    EXPECT_TRUE(tr::Tr().ui().isEmpty());
    EXPECT_FALSE(tr::Tr(tr::undefined, u"текст"_s).isEmpty());
    // A database takes null for no value.
    EXPECT_FALSE(tr::Tr().ru().isNull());
    EXPECT_FALSE(tr::Tr().ui().isNull());
}

TEST_F(TrTest, FillsPlaceholdersInTheOrderOfTheirNumbers)
{
    const tr::Tr message = tr::Tr(u"id"_s, u"%2 из %1, %2"_s).arg(u"а"_s).arg(u"б"_s);

    EXPECT_EQ(message.ru(), u"б из а, б"_s);
    EXPECT_EQ(message.id(), u"id"_s);
}

TEST_F(TrTest, TakesNoPlaceholderFromAnArgument)
{
    const tr::Tr message = tr::Tr(u"id"_s, u"%1: %2"_s).arg(u"скидка 5%2"_s).arg(u"%1"_s);

    EXPECT_EQ(message.ru(), u"скидка 5%2: %1"_s);
}

TEST_F(TrTest, LeavesPlaceholdersWithoutAnArgumentAndPercentSignsAlone)
{
    EXPECT_EQ(tr::Tr(u"id"_s, u"%1 %2 50% %"_s).arg(u"а"_s).ru(), u"а %2 50% %"_s);
}

TEST_F(TrTest, TakesNumbersFromOneToNinetyNine)
{
    const tr::Tr message = tr::Tr(u"id"_s, u"%0 %01 %123 %9 %99 %%1 %٣ %:"_s)
                               .arg(u"а"_s)
                               .arg(u"б"_s)
                               .arg(u"в"_s)
                               .arg(u"г"_s);

    EXPECT_EQ(message.ru(), u"%0 %01 в3 б г %а %٣ %:"_s);
}

TEST_F(TrTest, LeavesANumberWithoutAnArgumentAsItIsWritten)
{
    EXPECT_EQ(tr::Tr(u"id"_s, u"%1 %10"_s).arg(u"а"_s).ru(), u"а %10"_s);
}

TEST_F(TrTest, LeavesOutArgumentsWithoutAPlaceholder)
{
    EXPECT_EQ(tr::Tr(u"id"_s, u"текст"_s).arg(u"а"_s).ru(), u"текст"_s);
}

TEST_F(TrTest, LeavesTheMessageItWasMadeFromAlone)
{
    const tr::Tr message(u"id"_s, u"%1"_s);
    const tr::Tr filled = message.arg(u"а"_s);

    EXPECT_EQ(message.ru(), u"%1"_s);
    EXPECT_NE(message, filled);
    EXPECT_EQ(filled, message.arg(u"а"_s));
}

TEST_F(TrTest, FallsBackToRussianWhereNothingIsTranslated)
{
    const tr::Tr message = tr::Tr(u"korvelTest"_s, u"%1 и %2"_s).arg(u"а"_s).arg(u"б"_s);

    EXPECT_EQ(message.ui(), u"а и б"_s);
    EXPECT_EQ(tr::Tr(tr::undefined, u"текст"_s).ui(), u"текст"_s);
}

TEST_F(TrTest, FillsTheTranslationLikeTheRussianText)
{
    OneTranslation translator;
    QCoreApplication::installTranslator(&translator);
    const tr::Tr message = tr::Tr(u"korvelTest"_s, u"%1 и %2"_s).arg(u"а"_s).arg(u"б"_s);

    EXPECT_EQ(message.ui(), u"б and а"_s);
    EXPECT_EQ(message.ru(), u"а и б"_s);
    EXPECT_EQ(tr::Tr(u"other"_s, u"текст"_s).ui(), u"текст"_s);
}

TEST_F(TrTest, FillsAPlaceholderWithAMessageInTheLanguageOfTheWhole)
{
    OneTranslation translator;
    QCoreApplication::installTranslator(&translator);
    const tr::Tr inner = tr::Tr(u"korvelTest"_s, u"%1 и %2"_s).arg(u"а"_s).arg(u"б"_s);
    const tr::Tr message = tr::Tr(u"other"_s, u"(%1)"_s).arg(inner);

    EXPECT_EQ(message.ru(), u"(а и б)"_s);
    EXPECT_EQ(message.ui(), u"(б and а)"_s);
    EXPECT_EQ(message, tr::Tr(u"other"_s, u"(%1)"_s).arg(inner));
    EXPECT_NE(message, tr::Tr(u"other"_s, u"(%1)"_s).arg(tr::Tr()));
}

TEST_F(TrTest, FillsTheCountIntoTheRussianTextWhereNothingIsTranslated)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const tr::Tr message = tr::Tr(u"id"_s, u"%1: %n чеков, %Ln"_s).arg(u"%n"_s);

    EXPECT_EQ(message.ui(5000), u"%n: 5000 чеков, 5,000"_s);
}

TEST_F(TrTest, AsksForThePluralFormOfTheCount)
{
    OneTranslation translator;
    QCoreApplication::installTranslator(&translator);
    const tr::Tr message = tr::Tr(u"korvelCount"_s, u"%n чеков в %1"_s).arg(u"%n"_s);

    EXPECT_EQ(message.ui(1), u"%n: 1 cheque"_s);
    EXPECT_EQ(message.ui(2), u"%n: 2 cheques"_s);
}

TEST_F(TrTest, AnAmountIsPlainInTheRussianTextAndAsTheLocaleWritesItInTheInterface)
{
    const tr::Tr message = tr::Tr(u"id"_s, u"%1 и %2"_s).argAmount(1234.5).argAmount(-0.125);

    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(message.ru(), u"1234.50 и -0.13"_s);
    EXPECT_EQ(message.ui(), u"1,234.50 и -0.13"_s);
    QLocale::setDefault(QLocale(QLocale::Russian, QLocale::Russia));
    EXPECT_EQ(message.ru(), u"1234.50 и -0.13"_s);
    EXPECT_EQ(message.ui(), u"1\u00a0234,50 и -0,13"_s);
}

TEST_F(TrTest, AMomentIsWrittenTheRussianWayAndAsTheLocaleDoes)
{
    const tr::Tr message
        = tr::Tr(u"id"_s, u"от %1"_s).argMoment(QDateTime({2026, 11, 5}, {9, 30, 15}));

    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    EXPECT_EQ(message.ru(), u"от 05.11.2026 09:30"_s);
    EXPECT_EQ(message.ui(), u"от 05/11/2026 09:30"_s);
}

TEST_F(TrTest, TravelsInAVariant)
{
    const tr::Tr message = tr::Tr(u"id"_s, u"%1"_s).arg(u"а"_s);
    const QVariant value = message;

    EXPECT_EQ(value.value<tr::Tr>(), message);
}

} // namespace

// Texts come out of the translations that the program carries.

#include "host/framework/tr.h"
#include "tests/till/language/speakingtest.h"

using namespace Qt::StringLiterals;
using till::Language;

namespace {

class TextsTest : public SpeakingTest
{ };

TEST_F(TextsTest, AnIdThatEndsInANumberSharesATextWithTheNumberInIt)
{
    const tr::Tr other(u"korvelForbiddenCardStatus17"_s, u"Запрещенный статус карты '17'"_s);
    const tr::Tr below(u"korvelForbiddenCardStatus-8"_s, u"Запрещенный статус карты '-8'"_s);

    till::speak(Language::English);
    EXPECT_EQ(other.ui(), u"Card status '17' is forbidden"_s);
    EXPECT_EQ(below.ui(), u"Card status '-8' is forbidden"_s);
    till::speak(Language::Russian);
    EXPECT_EQ(other.ui(), u"Запрещенный статус карты '17'"_s);
}

TEST_F(TextsTest, AnIdThatEndsInANumberKeepsATextOfItsOwn)
{
    till::speak(Language::English);
    EXPECT_EQ(tr::Tr(u"korvelForbiddenCardStatus3"_s, {}).ui(), u"The card is blocked"_s);
}

TEST_F(TextsTest, AnUnknownIdWithANumberKeepsItsRussianText)
{
    till::speak(Language::English);
    EXPECT_EQ(tr::Tr(u"unknown7"_s, u"текст"_s).ui(), u"текст"_s);
    EXPECT_EQ(tr::Tr(tr::undefined, u"текст"_s).ui(), u"текст"_s);
}

TEST_F(TextsTest, CountsChooseThePluralForm)
{
    const tr::Tr left(u"queueExportLeft"_s, {});
    struct Row
    {
        Language language;
        int count;
        QString beginning;
    };
    const QList<Row> rows{{Language::English, 1, u"1 message is"_s},
        {Language::English, 2, u"2 messages are"_s}, {Language::Russian, 1, u"1 сообщение "_s},
        {Language::Russian, 3, u"3 сообщения "_s}, {Language::Russian, 5, u"5 сообщений "_s},
        {Language::Russian, 11, u"11 сообщений "_s}, {Language::Russian, 21, u"21 сообщение "_s}};
    for (const Row &row : rows) {
        till::speak(row.language);
        EXPECT_TRUE(left.ui(row.count).startsWith(row.beginning))
            << left.ui(row.count).toStdString();
    }
}

TEST_F(TextsTest, MessagesInsideAMessageComeInItsLanguage)
{
    const tr::Tr state(u"tillMessageMoved"_s, u"перенесено в файл %1"_s);
    const tr::Tr whole = tr::Tr(tr::undefined, u"7: %1"_s).arg(state.arg(u"a.json"_s));

    till::speak(Language::English);
    EXPECT_EQ(whole.ui(), u"7: moved into the file a.json"_s);
    EXPECT_EQ(whole.ru(), u"7: перенесено в файл a.json"_s);
}

} // namespace

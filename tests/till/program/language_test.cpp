// The language changes what people read, and nothing that programs read.

#include "tests/till/program/programfixture.h"

using namespace Qt::StringLiterals;

namespace {

class LanguageOfProgramTest : public ProgramFixture
{
public:
    void givenLanguage(const QByteArray &language) const
    {
        givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\nlanguage=" + language + "\n");
    }
    void whenSold() { whenStarted(usualOptions(), "add 1001\ncancel\nstorno 1\n"); }
    QByteArray transcriptIn(const QByteArray &language)
    {
        givenLanguage(language);
        whenScriptRuns("clock 2026-03-01T12:00:00\nadd 1001\nclose-shift\ncancel\n");
        return output;
    }
};

TEST_F(LanguageOfProgramTest, RussianIsSpokenWhereItIsSet)
{
    givenLanguage("ru");
    whenSold();
    EXPECT_TRUE(output.contains("1. Хлеб: 1 x 45,90 = 45,90\n")) << output.data();
    EXPECT_TRUE(errors.contains("нет открытого документа; откройте")) << errors.data();
}

TEST_F(LanguageOfProgramTest, EnglishIsSpokenWhereItIsSet)
{
    givenLanguage("en");
    whenSold();
    EXPECT_TRUE(output.contains("1. Хлеб: 1 x 45.90 = 45.90\n")) << output.data();
    EXPECT_TRUE(errors.contains("no document is open; open a sale or a return")) << errors.data();
}

TEST_F(LanguageOfProgramTest, AnUnknownLanguageMakesTheConfigurationUnusable)
{
    givenLanguage("de");
    whenSold();
    EXPECT_EQ(status, 3);
    EXPECT_TRUE(errors.contains("till.ini:3: key Till:language: \"de\"")) << errors.data();
}

TEST_F(LanguageOfProgramTest, TheTranscriptIsTheSameInEveryLanguage)
{
    const QByteArray russian = transcriptIn("ru");
    EXPECT_TRUE(russian.contains("Продажи: 0, сумма 0.00")) << russian.data();
    const QByteArray english = transcriptIn("en");
    EXPECT_TRUE(english.contains("Продажи: 0, сумма 0.00")) << english.data();
}

} // namespace

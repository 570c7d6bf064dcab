#include "host/config/config.h"
#include "host/framework/tr.h"
#include "tests/till/language/speakingtest.h"
#include "till/language/language.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using till::Language;

namespace {

const QLocale russianSystem(QLocale::Russian, QLocale::Kazakhstan);
const QLocale britishSystem(QLocale::English, QLocale::UnitedKingdom);

class LanguageTest : public SpeakingTest
{
protected:
    ~LanguageTest() override { Singleton<Config>::reset(); }

    static QString wordForTotal() { return tr::Tr(u"windowTotal"_s, u"по умолчанию"_s).ui(); }
    [[nodiscard]] QString complaint() const
    {
        try {
            static_cast<void>(till::languageOf(m_config, britishSystem));
            return {};
        } catch (const ConfigError &error) {
            return QString::fromUtf8(error.what());
        }
    }

    Config m_config;
};

TEST_F(LanguageTest, IsTheSystemsWhereNothingIsSet)
{
    struct Row
    {
        QLocale system;
        Language language;
    };
    const QList<Row> rows{
        {russianSystem, Language::Russian},
        {QLocale(QLocale::Russian), Language::Russian},
        {britishSystem, Language::English},
        {QLocale(QLocale::German, QLocale::Germany), Language::English},
        {QLocale::c(), Language::English},
    };
    for (const Row &row : rows)
        EXPECT_EQ(till::languageOf(m_config, row.system), row.language)
            << row.system.name().toStdString();
}

TEST_F(LanguageTest, IsTheOneThatIsSetWhateverTheSystemIs)
{
    m_config.set(u"Till:language"_s, u"ru"_s);
    EXPECT_EQ(till::languageOf(m_config, britishSystem), Language::Russian);
    m_config.set(u"Till:language"_s, u"en"_s);
    EXPECT_EQ(till::languageOf(m_config, russianSystem), Language::English);
}

TEST_F(LanguageTest, AnotherSettingIsAnErrorThatNamesFileLineAndKey)
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"till.ini"_s);
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Till]\n\nlanguage=Ru\n");
    file.close();
    m_config.load(name);

    EXPECT_EQ(complaint(),
        name
            + u":3: ключ Till:language: касса не говорит на языке «Ru»; укажите en, ru или уберите "
              u"ключ, тогда язык будет системный"_s);
}

TEST_F(LanguageTest, AnEmptySettingAndOneWithoutAFileAreErrorsToo)
{
    m_config.set(u"Till:language"_s, {});
    EXPECT_TRUE(complaint().startsWith(u"ключ Till:language: касса не говорит на языке «»"_s));
}

TEST_F(LanguageTest, TheLocaleIsTheSystemsWhereThatHasTheLanguage)
{
    struct Row
    {
        Language language;
        QLocale system;
        QString locale;
    };
    const QList<Row> rows{
        {Language::Russian, russianSystem, u"ru_KZ"_s},
        {Language::Russian, britishSystem, u"ru_RU"_s},
        {Language::Russian, QLocale::c(), u"ru_RU"_s},
        {Language::English, QLocale(QLocale::English, QLocale::UnitedStates), u"en_US"_s},
        {Language::English, russianSystem, u"en_GB"_s},
        {Language::English, QLocale::c(), u"en_GB"_s},
    };
    for (const Row &row : rows)
        EXPECT_EQ(till::localeOf(row.language, row.system).name(), row.locale);
}

TEST_F(LanguageTest, TextsAreOfTheLanguageThatWasSpokenLast)
{
    EXPECT_EQ(wordForTotal(), u"по умолчанию"_s);
    till::speak(Language::English);
    EXPECT_EQ(wordForTotal(), u"TOTAL"_s);
    EXPECT_EQ(QLocale().name(), u"en_GB"_s);
    till::speak(Language::Russian);
    till::speak(Language::Russian);
    EXPECT_EQ(wordForTotal(), u"ИТОГО"_s);
    EXPECT_EQ(QLocale().name(), u"ru_RU"_s);
    till::speak(Language::English, QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(wordForTotal(), u"TOTAL"_s);
    EXPECT_EQ(QLocale().name(), u"en_US"_s);
}

TEST_F(LanguageTest, IsSpokenAsConfigured)
{
    Singleton<Config>::instance()->set(u"Till:language"_s, u"ru"_s);
    till::speakAsConfigured();
    EXPECT_EQ(wordForTotal(), u"ИТОГО"_s);
    EXPECT_EQ(QLocale().language(), QLocale::Russian);

    Singleton<Config>::instance()->set(u"Till:language"_s, u"en"_s);
    till::speakAsConfigured();
    EXPECT_EQ(wordForTotal(), u"TOTAL"_s);
    EXPECT_EQ(QLocale().language(), QLocale::English);
}

TEST_F(LanguageTest, AWrongSettingLeavesWhatWasSpokenBefore)
{
    till::speak(Language::English);
    Singleton<Config>::instance()->set(u"Till:language"_s, u"de"_s);
    EXPECT_THROW(till::speakAsConfigured(), ConfigError);
    EXPECT_EQ(wordForTotal(), u"TOTAL"_s);
}

// Each application takes its translators along.
TEST(LanguageOfApplications, IsSpokenToTheNextOneToo)
{
    const tr::Tr total(u"windowTotal"_s, u"по умолчанию"_s);
    for (int i = 0; i < 2; ++i) {
        const SilentApplication application;
        EXPECT_EQ(total.ui(), u"по умолчанию"_s);
        till::speak(Language::English);
        EXPECT_EQ(total.ui(), u"TOTAL"_s);
    }
}

} // namespace

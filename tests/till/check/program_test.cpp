// `korvel-till check` as its users start it.

#include "tests/support/scriptedserver.h"
#include "tests/till/program/programfixture.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <set>

using namespace Qt::StringLiterals;

namespace {

const QByteArray secret = "planted-7c1f";

class CheckProgramTest : public ProgramFixture
{
public:
    CheckProgramTest() { EXPECT_TRUE(QDir().mkpath(path(u"state"_s))); }

    void givenSettings(const QByteArray &ini) const
    {
        const QString file = givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\n" + ini);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
        QFile::setPermissions(
            path(u"state"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void whenChecked(const QStringList &words)
    {
        whenStarted(QStringList{u"check"_s, u"--plugin"_s, plugin(u"sellingplugin"_s), u"--state"_s,
                        path(u"state"_s)}
            + words);
    }
    nlohmann::json whenCheckedForJson(const QStringList &words)
    {
        whenChecked(words + QStringList{u"--json"_s});
        return nlohmann::json::parse(output.toStdString(), nullptr, false);
    }
    static std::set<std::string> idsOf(const nlohmann::json &object, const std::string &severity)
    {
        std::set<std::string> ids;
        for (const auto &finding : object["findings"])
            if (finding["severity"] == severity)
                ids.insert(finding["id"].get<std::string>());
        return ids;
    }
    static QByteArray sample(const QString &name)
    {
        QFile file(QStringLiteral(KORVEL_SOURCE_DIR "/protocol/samples/") + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

using Ids = std::set<std::string>;

TEST_F(CheckProgramTest, EndsWith0WhereNothingIsWrong)
{
    ScriptedServer service;
    service.answer(sample(u"balance-answer.xml"_s));
    givenSettings(
        "[KorvelLoyaltyOnline]\nuser=u\npassword=" + secret + "\nurl=" + service.url().toEncoded());
    const auto object = whenCheckedForJson({u"--card"_s, u"2900000000017"_s});

    EXPECT_EQ(status, 0) << output.toStdString();
    EXPECT_EQ(object["worst"], "note");
    EXPECT_EQ(idsOf(object, "note"), Ids{"checkNoDate"});
    EXPECT_EQ(errors, "");
    ASSERT_EQ(service.requests().size(), 1);
}

TEST_F(CheckProgramTest, EndsWith1WhereThereAreWarnings)
{
    givenSettings("[Queue]\nkepDays=1\n");
    const auto object = whenCheckedForJson({u"--no-service"_s});

    EXPECT_EQ(status, 1);
    EXPECT_EQ(object["worst"], "warning");
    EXPECT_EQ(idsOf(object, "warning"), Ids{"checkKeyUnknown"});
    EXPECT_EQ(idsOf(object, "note"), Ids{"checkServiceSkipped"});
    EXPECT_EQ(object["findings"][0]["file"], "till.ini");
    EXPECT_EQ(object["findings"][0]["line"], 4);
}

TEST_F(CheckProgramTest, EndsWith2WhereThereAreErrors)
{
    givenSettings("[Queue]\nkeepDays=many\n");
    whenChecked({u"--no-service"_s});

    EXPECT_EQ(status, 2);
    EXPECT_TRUE(output.contains("  error          till.ini:4 Queue:keepDays: \"many\" is no whole "
                                "number, the default counts\n"
                                "                 → write, for example, 90\n"))
        << output.toStdString();
    EXPECT_TRUE(output.endsWith("In all: error\n"));
    EXPECT_FALSE(output.contains('\033'));
}

TEST_F(CheckProgramTest, EndsWith3WhereThereIsNoSuchConfiguration)
{
    whenChecked({u"--config"_s, u"missing.ini"_s});
    thenFails(3, u"korvel-till: missing.ini: there is no such file; "_s);
    EXPECT_EQ(output, "");
}

TEST_F(CheckProgramTest, TellsOfAConfigurationThatNeverEnds)
{
    const auto object = whenCheckedForJson({u"--config"_s, u"/dev/zero"_s});

    EXPECT_EQ(status, 2) << errors.toStdString();
    EXPECT_TRUE(idsOf(object, "error").count("checkLineMalformed")) << output.toStdString();
}

TEST_F(CheckProgramTest, EndsWith2WhereItsWordsAreWrong)
{
    for (const QStringList &words : {QStringList{u"--no-such"_s}, QStringList{u"extra"_s},
             QStringList{u"--card"_s, u"1"_s, u"--no-service"_s}}) {
        whenChecked(words);
        thenFails(2, u"korvel-till: "_s);
        EXPECT_EQ(output, "");
    }
}

TEST_F(CheckProgramTest, LooksAtNothingElseWhereTheConfigurationCannotBeRead)
{
    givenSettings("[Queue\n[Quue]\nkeepDays\n");
    const auto object = whenCheckedForJson({});

    EXPECT_EQ(status, 2);
    EXPECT_EQ(object["findings"].size(), 3U) << output.toStdString();
    EXPECT_EQ(object["findings"][0]["line"], 3);
    EXPECT_EQ(object["findings"][1]["id"], "checkSectionUnknown");
    EXPECT_EQ(object["findings"][2]["line"], 5);
}

TEST_F(CheckProgramTest, TellsThatAFileOfAValueCannotBeRead)
{
    givenSettings("[KorvelLoyaltyOnline]\nuser=u\npassword=@file:missing\n");
    const auto object = whenCheckedForJson({});

    EXPECT_EQ(status, 2);
    EXPECT_EQ(idsOf(object, "error"), Ids{"checkConfigUnusable"});
    EXPECT_EQ(object["findings"][0]["file"], "till.ini");
}

TEST_F(CheckProgramTest, TellsOfALanguageThatTheTillDoesNotSpeakOnce)
{
    givenSettings("language=de\n");
    const auto object = whenCheckedForJson({u"--no-service"_s});

    EXPECT_EQ(status, 2);
    EXPECT_EQ(idsOf(object, "error"), Ids{"checkNotAmong"});
}

TEST_F(CheckProgramTest, SpeaksTheLanguageOfTheSettings)
{
    givenSettings("language=ru\n[Queue]\nkepDays=1\n");
    whenChecked({u"--no-service"_s});
    EXPECT_TRUE(output.contains("возможно, имелся в виду Queue:keepDays")) << output.toStdString();
    EXPECT_TRUE(output.contains("database=(<state>/queue/queue.sqlite)"));
    EXPECT_TRUE(output.contains("caFile=(системные)"));
}

TEST_F(CheckProgramTest, DoesWithoutAConfiguration)
{
    QFile::remove(path(u"till.ini"_s));
    const auto object = whenCheckedForJson({u"--no-service"_s});
    EXPECT_EQ(status, 1); // the state folder is everybody's
    EXPECT_EQ(
        idsOf(object, "note"), (Ids{"checkNoConfig", "checkNoCatalogue", "checkServiceSkipped"}));
}

TEST_F(CheckProgramTest, LeavesNothingBehind)
{
    givenSettings("");
    QFile::remove(path(u"state"_s));
    whenStarted({u"check"_s, u"--plugin"_s, plugin(u"sellingplugin"_s), u"--state"_s,
        path(u"not/there"_s), u"--no-service"_s});
    EXPECT_EQ(status, 0) << output.toStdString();
    EXPECT_FALSE(QFile::exists(path(u"not"_s)));
    EXPECT_TRUE(QDir(path(u"state"_s)).isEmpty());
}

TEST_F(CheckProgramTest, TellsNoSecret)
{
    ScriptedServer service;
    service.answer("", 401);
    const QByteArray address
        = "http://u:" + secret + "@127.0.0.1:" + QByteArray::number(service.url().port()) + '/';
    const QByteArray basic = QByteArray("u:" + secret).toBase64();
    const QList<QByteArray> configurations{
        "[KorvelLoyaltyOnline]\nuser=u\npassword=" + secret + "\nurl=" + service.url().toEncoded()
            + '\n',
        "[KorvelLoyaltyOnline]\nuser=u\npassword=" + secret + "\npassword=" + secret
            + "\nurl=http://127.0.0.1:1/\n",
        "[KorvelLoyaltyOnline]\npasword=" + secret + "\nurl=" + address,
        "[KorvelLoyaltyOnline]\nurl=x" + address + "\n[Till]\nserviceApi=" + address,
        "[RestClient]\nproxy=http://u:" + secret + "@127.0.0.1:1\n",
        "[Queue]\ndatabase=postgresql://u:" + secret + "@h:port/n\n",
        "[KorvelLoyaltyOnline]\npassword: " + secret + '\n',
    };
    for (const QByteArray &configuration : configurations)
        for (const QStringList &words : {QStringList{u"--json"_s}, QStringList{}}) {
            SCOPED_TRACE(configuration.constData());
            givenSettings(configuration);
            QFile::setPermissions(
                path(u"till.ini"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
            whenChecked(words);
            EXPECT_NE(status, 0);
            for (const QByteArray &told : {output, errors}) {
                EXPECT_FALSE(told.contains(secret)) << told.toStdString();
                EXPECT_FALSE(told.contains(basic)) << told.toStdString();
            }
        }
}

TEST_F(CheckProgramTest, TellsWhatTheGuideShows)
{
    QFile guide(QStringLiteral(KORVEL_SOURCE_DIR "/docs/check.md"));
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    const auto block = [&text](const QString &kind) {
        return text.section(u"\n```"_s + kind + u'\n', 1, 1).section(u"```"_s, 0, 0);
    };
    static const QRegularExpression room(u"has [0-9]+ MiB free"_s);
    static const QRegularExpression module(u"plug-in [^ ]+ fits"_s);
    givenFile(u"till.ini"_s, block(u"ini"_s).toUtf8());
    QFile::remove(path(u"catalogue.json"_s));
    QFile::copy(
        QStringLiteral(KORVEL_SOURCE_DIR "/config/catalogue.json"), path(u"catalogue.json"_s));
    QFile::setPermissions(
        path(u"till.ini"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    QFile::setPermissions(path(u"state"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    whenStarted({u"check"_s, u"--no-service"_s, u"--plugin"_s, plugin(u"sellingplugin"_s)});

    const auto timeless = [](QString told) { return told.remove(room).remove(module); };
    EXPECT_EQ(timeless(QString::fromUtf8(output)).toStdString(),
        timeless(block(u"text"_s)).toStdString());
}

TEST_F(CheckProgramTest, FindsNothingWrongWithTheSample)
{
    for (const QString &name : {u"till.ini"_s, u"catalogue.json"_s}) {
        QFile::remove(path(name));
        EXPECT_TRUE(QFile::copy(QStringLiteral(KORVEL_SOURCE_DIR "/config/") + name, path(name)));
    }
    QFile::setPermissions(path(u"state"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const auto object = whenCheckedForJson({u"--no-service"_s});
    EXPECT_EQ(status, 0) << output.toStdString();
    EXPECT_EQ(idsOf(object, "note"), Ids{"checkServiceSkipped"});
}

} // namespace

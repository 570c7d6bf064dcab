// export, import and reauthorise.

#include "tests/till/queue/queueprogramfixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class TransferTest : public QueueProgramFixture
{
public:
    QString givenExport()
    {
        const QString file = path(u"queue.export"_s);
        whenAsked({u"export"_s, file});
        EXPECT_EQ(status, 0) << errors.toStdString();
        return file;
    }
    void givenCredentials(const QByteArray &user, const QByteArray &password)
    {
        givenFile(u"till.ini"_s,
            "[Till]\ncatalogue=catalogue.json\n[KorvelLoyaltyOnline]\nurl=http://127.0.0.1:9/"
            "\nuser="
                + user + "\npassword=" + password + "\n");
    }
    QString authorizationOf(const QString &id) const
    {
        return message(id).headers.value(u"Authorization"_s);
    }
    static QString basic(const QByteArray &credentials)
    {
        return u"Basic "_s + QString::fromLatin1(credentials.toBase64());
    }
    /// Sells a cheque with the real plug-in while there is no service; the value that it queued.
    QString whenSoldOffline()
    {
        const QString sale = givenFile(u"sale.till"_s, "card 2900000000017\nadd 1002\nclose\n");
        whenStarted({u"run"_s, u"--plugin"_s, QStringLiteral(LOYALTY_PLUGIN), u"--state"_s,
            stateFolder(), sale});
        EXPECT_EQ(status, 0) << errors.toStdString();
        const auto queued = whenAskedForJson({u"list"_s});
        EXPECT_EQ(queued.size(), 1U);
        return QString::fromStdString(queued.at(0)["id"]);
    }
};

TEST_F(TransferTest, ExportedMessagesAreImportedOnAnotherMachine)
{
    givenMessage(u"aa"_s);
    givenMessage(u"bb"_s, MessageState::Delivered);
    const QString file = givenExport();
    EXPECT_EQ(output, "exported: 1\n");
    EXPECT_EQ(stateOf(u"aa"_s), u"parked"_s);
    QFile exported(file);
    ASSERT_TRUE(exported.open(QIODevice::ReadOnly));
    EXPECT_FALSE(exported.readAll().contains(credentials.toUtf8()));
    givenCredentials("other", "machine");
    ASSERT_TRUE(QDir(stateFolder()).removeRecursively());
    ASSERT_TRUE(QDir().mkpath(stateFolder()));
    EXPECT_EQ(whenAskedForJson({u"import"_s, file}), nlohmann::json::parse(R"({"imported": 1})"));
    EXPECT_EQ(stateOf(u"aa"_s), u"pending"_s);
    EXPECT_EQ(authorizationOf(u"aa"_s), basic("other:machine"));
    whenAsked({u"import"_s, file});
    EXPECT_EQ(output, "imported: 0\n");
}

TEST_F(TransferTest, WhatWasExportedAlarmsNobodyHere)
{
    givenMessage(u"aa"_s);
    givenExport();
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 0) << output.toStdString();
}

TEST_F(TransferTest, WhatIsInHandStaysAndIsTold)
{
    QueueMessage message = makeMessage(u"aa"_s);
    message.state = MessageState::Sending;
    givenMessage(message);
    whenAsked({u"export"_s, path(u"queue.export"_s)});
    thenFails(0, u"korvel-till: 1 message is in a deliverer's hands"_s);
    EXPECT_EQ(output, "exported: 0\n");
}

TEST_F(TransferTest, AFileThatIsThereIsNotOverwritten)
{
    givenMessage(u"aa"_s);
    whenAsked({u"export"_s, givenFile(u"there"_s, "x")});
    thenFails(2, u"korvel-till: "_s + path(u"there"_s) + u": is there already; ");
    EXPECT_EQ(stateOf(u"aa"_s), u"pending"_s);
}

TEST_F(TransferTest, AMissingOrDamagedFileIsNamed)
{
    whenAsked({u"import"_s, path(u"missing"_s)});
    thenFails(2, u"korvel-till: "_s + path(u"missing"_s) + u": there is no such file; ");
    whenAsked({u"import"_s, givenFile(u"damaged"_s, "{}\n")});
    thenFails(3, u"korvel-till: "_s + path(u"damaged"_s));
}

TEST_F(TransferTest, ReauthoriseGivesWhatThePluginWouldQueueNow)
{
    // With a placeholder, which the plug-in fills in a way of its own, and beyond ASCII.
    givenCredentials("shop%2", "пароль%1");
    const QString id = whenSoldOffline();
    const QString queuedByPlugin = authorizationOf(id);
    givenCredentials("old", "wrong");
    whenAsked({u"reauthorise"_s});
    EXPECT_EQ(authorizationOf(id), basic("old:wrong"));
    givenCredentials("shop%2", "пароль%1");
    whenAsked({u"reauthorise"_s});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(output, "changed: 1\n");
    EXPECT_EQ(authorizationOf(id), queuedByPlugin);
}

TEST_F(TransferTest, WithoutAUserNothingIsReauthorised)
{
    givenMessage(u"aa"_s);
    whenAsked({u"reauthorise"_s});
    thenFails(2, u"korvel-till: the settings have no KorvelLoyaltyOnline:user; "_s);
    EXPECT_EQ(authorizationOf(u"aa"_s), credentials);
}

TEST_F(TransferTest, NoCommandPrintsASecret)
{
    givenCredentials("shop", "verysecret");
    givenMessage(u"aa"_s);
    for (const QStringList &words : {QStringList{u"list"_s}, QStringList{u"list"_s, u"--json"_s},
             QStringList{u"status"_s}, QStringList{u"show"_s, u"aa"_s},
             QStringList{u"reauthorise"_s}, QStringList{u"show"_s, u"aa"_s, u"--json"_s},
             QStringList{u"retry"_s, u"aa"_s}, QStringList{u"metrics"_s}, QStringList{u"deliver"_s},
             QStringList{u"deliver"_s, u"--json"_s}, QStringList{u"set-aside"_s, u"aa"_s},
             QStringList{u"export"_s, path(u"file"_s)}}) {
        whenAsked(words);
        const QByteArray told = output + errors;
        for (const QByteArray &secret : {credentials.toUtf8(), card.toUtf8(),
                 basic("shop:verysecret").toUtf8(), QByteArray("verysecret")})
            EXPECT_FALSE(told.contains(secret)) << qPrintable(words.join(u' '));
    }
    QFile log(stateFolder() + u"/log/queue/korvel.log"_s);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray logged = log.readAll();
    EXPECT_TRUE(logged.contains("message aa of queue"));
    EXPECT_FALSE(logged.contains("verysecret"));
    EXPECT_FALSE(logged.contains(basic("shop:verysecret").toUtf8()));
}

} // namespace

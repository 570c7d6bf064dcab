#include "tests/emulator/recording/support/recorder.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// A day at a till in short: identified, calculated, paid with points, a coupon, closed; cancelled;
/// returned; offline, and delivered later.
constexpr const char *script = R"(
card 2900000000017
add 1001 2
add 1004
total
points 100
close
sale
card 2900000000024
add 1005 3
coupon 9900000000018
total
cancel
return 1
close
card 2900000000017
add 1003
total
close
deliver
)";

class TillTest : public testing::Test
{
protected:
    QString givenFile(const QString &name, const QByteArray &content)
    {
        QFile file(directory.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(name);
        file.write(content);
        return file.fileName();
    }

    /// What a new till writes down of the script when the service is there.
    QByteArray whenSold(const QString &till, const QString &url)
    {
        EXPECT_TRUE(QDir(directory.path()).mkpath(till + u"/till.ini.d"_s));
        for (const QString &name : {u"till.ini"_s, u"catalogue.json"_s})
            EXPECT_TRUE(QFile::copy(QStringLiteral(KORVEL_SOURCE_DIR "/config/") + name,
                directory.filePath(till + u'/' + name)));
        givenFile(till + u"/till.ini.d/10-service.ini"_s,
            u"[KorvelLoyaltyOnline]\nurl=%1\n"_s.arg(url).toUtf8());
        const QString transcript = directory.filePath(till + u".jsonl"_s);
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(KORVEL_TILL_PROGRAM),
            {u"run"_s, u"--config"_s, directory.filePath(till + u"/till.ini"_s), u"--plugin"_s,
                QStringLiteral(KORVEL_PLUGIN_FILE), u"--state"_s,
                directory.filePath(till + u"/state"_s), u"--transcript"_s, transcript,
                givenFile(u"script.till"_s, script)});
        EXPECT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0);
        return withoutTimes(contentOf(transcript));
    }

    /// Impacts carry the time at the till.
    static QByteArray withoutTimes(const QByteArray &transcript)
    {
        static const QRegularExpression time(uR"("dateTime":"[^"]*")"_s);
        return QString::fromUtf8(transcript).remove(time).toUtf8();
    }

    const QTemporaryDir directory;
};

TEST_F(TillTest, SellsFromTheRecordingAsItSoldBefore)
{
    const ServiceProcess service({u"--fault"_s, u"return lose"_s});
    RecorderProcess recorder(service.url(), {u"--mask-cards"_s});
    const QByteArray sold = whenSold(u"shop"_s, recorder.url());
    EXPECT_EQ(recorder.process().terminate(), 0);
    EXPECT_TRUE(sold.contains("\"deliver\"")) << sold.constData();
    EXPECT_TRUE(sold.contains("korvelNoConnection"));
    const QString errors = directory.filePath(u"errors"_s);
    ServiceProcess replay({u"replay"_s, recorder.folder()}, errors);
    EXPECT_EQ(whenSold(u"desk"_s, replay.url()), sold);
    EXPECT_EQ(replay.terminate(), 0);
    EXPECT_TRUE(contentOf(errors).endsWith("not matched 0, recorded but never asked for: 0\n"))
        << contentOf(errors).constData();
}

} // namespace
} // namespace emulator

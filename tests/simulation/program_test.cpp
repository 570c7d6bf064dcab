// simulate-outage as a program.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class SimulateOutageTest : public testing::Test
{
protected:
    void whenStarted(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral(SIMULATE_OUTAGE), arguments);
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        m_status = process.exitCode();
        m_output = QString::fromUtf8(process.readAllStandardOutput());
        m_errors = QString::fromUtf8(process.readAllStandardError());
    }
    QStringList small() const { return {u"--tills"_s, u"5"_s, u"10"_s, u"--outage"_s, u"10"_s}; }
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
    int m_status = -1;
    QString m_output;
    QString m_errors;
};

TEST_F(SimulateOutageTest, PrintsATableForEachNumberOfTills)
{
    whenStarted(small());
    EXPECT_EQ(m_status, 0);
    EXPECT_TRUE(m_output.startsWith(u"5 tills, "_s));
    EXPECT_TRUE(m_output.contains(u"\n10 tills, "_s));
    EXPECT_EQ(m_output.count(u"\nchosen "_s), 2);
    EXPECT_EQ(m_output.count(u"\nno wait "_s), 2);
}

TEST_F(SimulateOutageTest, PrintsTheSameForTheSameSeed)
{
    whenStarted(small());
    const QString first = m_output;
    whenStarted(small());
    EXPECT_EQ(m_output, first);
}

TEST_F(SimulateOutageTest, PlotsTheLastNumberOfTills)
{
    whenStarted(small() << u"--plot"_s << path(u"outage.svg"_s));
    EXPECT_EQ(m_status, 0);
    QFile plot(path(u"outage.svg"_s));
    ASSERT_TRUE(plot.open(QIODevice::ReadOnly));
    EXPECT_TRUE(plot.readAll().contains("10 tills after an outage of 10 minutes"));
}

TEST_F(SimulateOutageTest, APlotThatCannotBeWrittenIsAnError)
{
    whenStarted(small() << u"--plot"_s << path(u"missing/outage.svg"_s));
    EXPECT_EQ(m_status, 2);
    EXPECT_TRUE(
        m_errors.startsWith(u"simulate-outage: --plot: "_s + path(u"missing/outage.svg"_s)));
    EXPECT_TRUE(m_output.isEmpty());
}

TEST_F(SimulateOutageTest, WrongUseIsAnErrorInOneLine)
{
    whenStarted({u"--tills"_s, u"many"_s});
    EXPECT_EQ(m_status, 2);
    EXPECT_TRUE(m_errors.startsWith(u"simulate-outage: "_s));
    EXPECT_EQ(m_errors.count(u'\n'), 1);
    EXPECT_TRUE(m_output.isEmpty());
}

} // namespace

// Who else may read what the till keeps.

#include "host/config/config.h"
#include "host/storage/privacy.h"
#include "host/storage/statefolder.h"
#include "tests/host/storage/files.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class PrivacyTest : public HostFixture, public testing::Test
{
public:
    QString givenFile(const QString &name, mode_t rights)
    {
        const QString path = stateFolder() + u'/' + name;
        files::put(path, "x");
        givenRights(path, rights);
        return path;
    }
    QString givenFolder(const QString &name, mode_t rights)
    {
        const QString path = stateFolder() + u'/' + name;
        QDir().mkpath(path);
        givenRights(path, rights);
        return path;
    }
    static void givenRights(const QString &path, mode_t rights)
    {
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), rights), 0);
    }
};

} // namespace

TEST_F(PrivacyTest, WhatIsTheOwnersAloneIsPrivate)
{
    EXPECT_EQ(privacy::looseRights({givenFile(u"a"_s, 0600), givenFile(u"b"_s, 0400),
                  givenFile(u"c"_s, 0700), givenFolder(u"d"_s, 0700), stateFolder() + u"/none"_s}),
        QStringList());
}

TEST_F(PrivacyTest, EachRightOfOthersIsLoose)
{
    for (const mode_t right : {0040U, 0020U, 0010U, 0004U, 0002U, 0001U}) {
        SCOPED_TRACE(right);
        EXPECT_EQ(privacy::looseRights({givenFile(u"file"_s, 0600U | right)}).size(), 1);
        EXPECT_EQ(privacy::looseRights({givenFolder(u"folder"_s, 0700U | right)}).size(), 1);
    }
}

TEST_F(PrivacyTest, TheWarningSaysWhatToDo)
{
    const QString file = givenFile(u"file"_s, 0644);
    const QString folder = givenFolder(u"folder"_s, 0755);
    EXPECT_EQ(privacy::looseRights({file, folder}),
        QStringList({file
                + u": other users may read or change it, its rights are 644; take them away with "
                  u"chmod 600",
            folder
                + u": other users may read or change it, its rights are 755; take them away with "
                  u"chmod 700"}));
}

TEST_F(PrivacyTest, SettingsOfTheAdministratorMayBeReadByTheirGroup)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file away";
    constexpr uid_t somebodyElse = 65534;
    const QString file = givenFile(u"till.ini"_s, 0640);
    const QString folder = givenFolder(u"folder"_s, 0740);
    for (const QString &path : {file, folder})
        ASSERT_EQ(::chown(QFile::encodeName(path).constData(), somebodyElse, somebodyElse), 0);
    EXPECT_EQ(privacy::looseRights({file}), QStringList());
    EXPECT_EQ(privacy::looseRights({folder}).size(), 1);
    givenRights(file, 0660);
    EXPECT_EQ(privacy::looseRights({file}).size(), 1);
    givenRights(file, 0644);
    EXPECT_EQ(privacy::looseRights({file}).size(), 1);
}

TEST_F(PrivacyTest, SettingsStateAndQueueAreLookedAt)
{
    const QTemporaryDir settings;
    const QString main = settings.filePath(u"till.ini"_s);
    const QString secret = settings.filePath(u"secret"_s);
    files::put(main, "[KorvelLoyaltyOnline]\npassword=@file:secret\n");
    files::put(secret, "x\n");
    for (const QString &path : {main, secret})
        givenRights(path, 0644);
    Singleton<Config>::instance()->load(main);
    givenRights(stateFolder(), 0755);
    const QStringList loose{main, secret, stateFolder(), givenFile(u"journal.jsonl"_s, 0644),
        givenFolder(u"queue"_s, 0755), givenFile(u"queue/queue.sqlite"_s, 0640)};
    givenFile(u"document.json"_s, 0600);

    const LogCapture log(u"poshost.privacy"_s);
    privacy::warnOfLooseRights();

    EXPECT_EQ(log.lines().size(), loose.size());
    for (const QString &warning : privacy::looseRights(loose))
        EXPECT_TRUE(log.has(u"WARN"_s, warning)) << warning.toStdString();
}

TEST_F(PrivacyTest, ACrashLeavesNoCore)
{
    const auto coreLimit = [] {
        rlimit limit = {};
        ::getrlimit(RLIMIT_CORE, &limit);
        return limit.rlim_max;
    };
    EXPECT_EXIT((privacy::leaveNoCore(), ::_exit(coreLimit() == 0 ? 0 : 1)),
        testing::ExitedWithCode(0), "");
}

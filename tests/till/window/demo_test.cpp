// The demonstration: a service of its own, and the sample catalogue.

#include "host/config/config.h"
#include "host/documents/catalogue.h"
#include "tests/support/hostfixture.h"
#include "tests/support/printers.h"
#include "till/window/demo/demo.h"
#include "till/window/servicepage.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

using namespace Qt::StringLiterals;
using till::DemoService;

namespace {

class DemoTest : public HostFixture, public testing::Test
{
public:
    static QString whyNot(const QString &program, std::chrono::milliseconds limit)
    {
        try {
            const DemoService service(program, limit);
            return {};
        } catch (const std::runtime_error &error) {
            return QString::fromUtf8(error.what());
        }
    }
    QString givenProgram(const QByteArray &script) const
    {
        QString name = stateFolder() + u"/service"_s;
        QFile file(name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + script + '\n');
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return name;
    }
};

constexpr std::chrono::seconds longEnough{30};

TEST_F(DemoTest, AServiceListensOnAFreePortAndEndsWithItsOwner)
{
    auto service = std::make_unique<DemoService>(QStringLiteral(SERVICE_PROGRAM));
    EXPECT_EQ(service->url().host(), u"127.0.0.1");
    EXPECT_GT(service->url().port(), 0);
    const auto process = static_cast<pid_t>(service->processId());
    EXPECT_EQ(kill(process, 0), 0);
    service.reset();
    EXPECT_EQ(kill(process, 0), -1);
}

TEST_F(DemoTest, WhatDoesNotStartIsToldWithARemedy)
{
    for (const auto &[program, reason] : {std::pair(u"/nowhere/service"_s, u"No such file"_s),
             std::pair(givenProgram("exit 7"), u"завершился с кодом 7"_s)}) {
        const QString told = whyNot(program, longEnough);
        EXPECT_TRUE(told.contains(program)) << qPrintable(told);
        EXPECT_TRUE(told.contains(reason)) << qPrintable(told);
        EXPECT_TRUE(told.contains(u"--config")) << qPrintable(told);
    }
}

TEST_F(DemoTest, AServiceThatNeverListensIsNotWaitedForLonger)
{
    const QString told = whyNot(givenProgram("exec cat"), std::chrono::milliseconds(1));
    EXPECT_TRUE(told.contains(u"не начал отвечать вовремя")) << qPrintable(told);
}

TEST_F(DemoTest, TheFilesSellTheSampleCatalogueWithThatService)
{
    till::RunOptions given;
    given.pluginFile = u"own.so"_s;
    const auto options
        = till::writeDemoFiles(stateFolder(), QUrl(u"http://127.0.0.1:4711/"_s), given);
    EXPECT_EQ(options.pluginFile, u"own.so");
    EXPECT_EQ(options.stateFolder, stateFolder() + u"/state");
    auto *config = Singleton<Config>::instance();
    config->load(options.configFile);
    EXPECT_EQ(config->getString(u"KorvelLoyaltyOnline:url"_s, {}), u"http://127.0.0.1:4711/");
    EXPECT_EQ(till::servicePage(), QUrl(u"http://127.0.0.1:4711/console"_s));
    EXPECT_FALSE(Catalogue::load(config->getPath(u"Till:catalogue"_s, {})).articles().isEmpty());
}

TEST_F(DemoTest, AStateFolderThatWasNamedCounts)
{
    till::RunOptions given;
    given.stateFolder = u"/own/state"_s;
    EXPECT_EQ(till::writeDemoFiles(stateFolder(), QUrl(u"http://127.0.0.1/"_s), given).stateFolder,
        u"/own/state");
}

TEST_F(DemoTest, AFolderThatCannotBeWrittenIsTold)
{
    EXPECT_THROW(
        static_cast<void>(till::writeDemoFiles(u"/proc/none"_s, QUrl(), {})), std::runtime_error);
}

TEST_F(DemoTest, TheServicesPageIsThatOfItsApi)
{
    EXPECT_EQ(till::servicePage(), QUrl());
    for (const QString &api : {u"http://host:1/api"_s, u"http://host:1/api/"_s}) {
        givenSetting(u"Till:serviceApi"_s, api);
        EXPECT_EQ(till::servicePage(), QUrl(u"http://host:1/console"_s));
    }
}

} // namespace

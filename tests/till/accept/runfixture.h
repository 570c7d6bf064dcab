#pragma once

#include "host/framework/singleton.h"
#include "tests/emulator/support/serviceprocess.h"
#include "till/accept/flowreader.h"
#include "till/accept/report.h"
#include "till/accept/runner.h"

#include <gmock/gmock.h>

/// Runs the flows against a `korvel-service` of the test's own, or against what stands before it.
class RunFixture : public testing::Test
{
public:
    static till::accept::RunSettings usualSettings(const QUrl &url);
    /// Rules that failed, each once.
    static QStringList failedRules(const till::accept::Report &report);
    /// The first result of that rule; a null rule where no flow has it.
    static till::accept::RuleResult resultOf(
        const till::accept::Report &report, const QString &rule);
    /// What the service's own API says of the usual card: points that can be spent.
    [[nodiscard]] double balance() const;

    /// All flows, or the one of that name.
    [[nodiscard]] till::accept::Report whenRun(
        const till::accept::RunSettings &settings, const QString &only = {}) const;

    const till::accept::Acceptance acceptance
        = till::accept::readAcceptance(till::accept::builtInProtocol());
    emulator::ServiceProcess service;
    const QUrl url = QUrl(service.url());
};

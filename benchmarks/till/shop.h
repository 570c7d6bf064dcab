#pragma once

#include "tests/support/delayingrelay.h"

#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <memory>

/// What a shop of the benchmarks is like.
struct ShopPlan
{
    QString disk; ///< folder that the till's and the service's state goes under
    bool tls = false; ///< the line to the service
    std::chrono::milliseconds oneWay{0}; ///< how long everything takes on that line, each way
};

/// A loyalty service with the sample data and a till, each a process of its own, with a line
/// between them.
class Shop
{
public:
    using Seconds = std::chrono::duration<double>;

    /// @throws std::runtime_error when one of the two does not start.
    explicit Shop(const ShopPlan &plan);
    ~Shop();
    Q_DISABLE_COPY_MOVE(Shop)

    /// Gives the till a command and waits until it is done; how long that took.
    /// @throws std::runtime_error when the till has ended.
    Seconds tell(const QString &command);
    /// What the till's process holds in memory, in bytes.
    [[nodiscard]] qint64 tillMemory() const;
    /// Of each exchange so far.
    [[nodiscard]] QList<int> roundTrips() const { return m_line->roundTrips(); }

private:
    [[nodiscard]] QStringList certificate() const;
    void startService(const ShopPlan &plan);
    void writeSettings(const ShopPlan &plan) const;
    void startTill();

    QTemporaryDir m_folder;
    QProcess m_service;
    std::unique_ptr<DelayingRelay> m_line;
    QProcess m_till;
};

#pragma once

#include "tests/emulator/support/serviceprocess.h"
#include "tests/restart/premises.h"

#include <QString>

#include <nlohmann/json.hpp>

#include <memory>

namespace restart {

/// A running `korvel-service` with books on disk, and its API. It can be away for a time.
class Service
{
public:
    explicit Service(const Premises &premises);

    /// Waits for the end of a service that was told to stop.
    void awaitStop();
    /// Starts it on its port and books again when it was stopped.
    void startAgain();

    /// @throws std::runtime_error when the API does not answer with status 200.
    [[nodiscard]] nlohmann::json get(const QString &path) const;
    void orderFault(const QByteArray &words) const;
    /// Its books are as at the start again, and no faults are ordered.
    void reset() const;

private:
    void start();

    const Premises &m_premises;
    std::unique_ptr<emulator::ServiceProcess> m_process;
};

} // namespace restart

#pragma once

#include <QString>

#include <chrono>

/// Finding a server without waiting long for a name server or a machine that keeps silent.
namespace serverlookup {

struct Found
{
    QString networkAddress; ///< under which a connection could be made
    QString error; ///< why there is none; empty when there is one
};

/// Makes a connection to the port and gives it up again. Blocks for so long at most.
[[nodiscard]] Found find(const QString &host, int port, std::chrono::milliseconds limit);

} // namespace serverlookup

#pragma once

#include "till/run/options.h"
#include "till/window/demo/demoservice.h"

#include <QTemporaryDir>

namespace till {

/// A till without a configuration sells the sample catalogue with a service of its own.
///
/// Its files, the till's state among them, are in a temporary folder that goes with this object:
/// the service keeps its books in memory, and a state that outlives them would not fit the next
/// ones.
class Demo
{
public:
    /// Starts the service and writes the files.
    /// @param given what the till was called with; its plug-in and state folder count.
    /// @throws SpokenError when something of it cannot be done.
    explicit Demo(const RunOptions &given);

    [[nodiscard]] const RunOptions &options() const { return m_options; }
    [[nodiscard]] const DemoService &service() const { return m_service; }

private:
    QTemporaryDir m_folder;
    DemoService m_service;
    RunOptions m_options;
};

/// Writes a configuration that sells the sample catalogue with the service there into a folder.
/// @return the options of a till that sells so, otherwise as given.
/// @throws SpokenError when a file cannot be written.
[[nodiscard]] RunOptions writeDemoFiles(
    const QString &folder, const QUrl &service, const RunOptions &given);

} // namespace till

#pragma once

#include "host/documents/catalogue.h"
#include "host/storage/documentstore.h"
#include "till/core/frozenclock.h"
#include "till/core/till.h"
#include "till/pluginloading.h"
#include "till/run/options.h"
#include "till/transcript/cashier.h"
#include "till/transcript/recorder.h"
#include "till/transcript/recordingservices.h"

#include <memory>

namespace till {

/// Everything that a till needs, in place as long as this lives: settings, state folder, log,
/// services, plug-in and the till itself.
class Workplace
{
public:
    /// Reads the configuration, takes the state folder and loads the plug-in, in this order; the
    /// till is then ready to be started. The plug-in is left alone where "Till:loyalty" is false
    /// and no document with a card was left open.
    /// @param cashier who answers the plug-in's dialogs; not owned, must outlive this.
    /// @throws ConfigError, StorageError, CatalogueError or PluginError when one of them cannot be
    ///         used; `what()` is the one line to be told.
    Workplace(const RunOptions &options, Cashier &cashier);
    ~Workplace();
    Q_DISABLE_COPY_MOVE(Workplace)

    [[nodiscard]] Till &till() { return m_till; }
    [[nodiscard]] const Exchanges &exchanges() const { return m_services.exchanges(); }
    [[nodiscard]] FrozenClock &clock() { return m_clock; }
    [[nodiscard]] Recorder &recorder() { return m_recorder; }
    [[nodiscard]] const Catalogue &catalogue() const { return m_catalogue; }

private:
    // In the order in which one needs the other; they go in the opposite one.
    std::unique_ptr<DocumentStore> m_store;
    Catalogue m_catalogue;
    Recorder m_recorder;
    FrozenClock m_clock;
    RecordingServices m_services;
    std::unique_ptr<LoadedPlugin> m_plugin; ///< null: nothing needs it
    WithoutLoyalty m_withoutLoyalty;
    Till m_till;
};

} // namespace till

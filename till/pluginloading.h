#pragma once

#include "host/framework/basicloyaltysystem.h"
#include "host/framework/spokenerror.h"

#include <QObject>
#include <QString>

#include <memory>

namespace till {

/// A plug-in that cannot be used; `what()` says in one line which file, why and what to do.
class PluginError : public SpokenError
{
public:
    using SpokenError::SpokenError;
    ~PluginError() override;
};

/// Path of the given plug-in; without one that of this program, see `installation`.
[[nodiscard]] QString pluginFile(const QString &given);

/// Looks at the file and its metadata; none of its code runs.
/// @throws PluginError when the file is missing, is no plug-in, or has another interface id.
void requirePluginFile(const QString &fileName);

/// The loyalty plug-in, loaded from its file and initialised.
///
/// Its code stays loaded to the end of the program; its object goes with this one.
class LoadedPlugin
{
public:
    /// Checks the file's metadata before any of its code runs, then makes and initialises the
    /// plug-in's object.
    /// @throws PluginError when the file is missing, is no plug-in, has another interface id, or
    ///         its plug-in registers no loyalty system.
    explicit LoadedPlugin(const QString &fileName);
    ~LoadedPlugin();
    Q_DISABLE_COPY_MOVE(LoadedPlugin)

    /// Valid as long as this lives.
    [[nodiscard]] BasicLoyaltySystem &loyaltySystem() const { return *m_system; }

private:
    std::unique_ptr<QObject> m_object;
    BasicLoyaltySystem *m_system = nullptr;
};

} // namespace till

#pragma once

#include <QString>

namespace till::installation {

/// The loyalty plug-in of this program: the one beside it, as in a build folder, otherwise the one
/// that was installed with it. Where there is neither, the one that should stand beside it.
[[nodiscard]] QString pluginFile();

/// Where the settings of an installed till stand: /etc/korvel/till.ini for a program of /usr/bin,
/// PREFIX/etc/korvel/till.ini for one of any other PREFIX/bin. It need not exist.
[[nodiscard]] QString configurationFile();

} // namespace till::installation

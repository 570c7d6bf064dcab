#pragma once

#include "host/export.h"

#include <QString>

namespace Log4Qt {

// As in the library, whoever writes to a logger includes its header too.
class Logger;

/// Where loggers come from.
class POSHOST_EXPORT LogManager
{
public:
    /// The logger of that name, made on first use; never null, never released.
    static Logger *logger(const QString &name);
};

} // namespace Log4Qt

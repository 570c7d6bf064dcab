#pragma once

#include "host/export.h"

#include <QString>

#include <stdexcept>

/// A configuration file that cannot be used; `what()` says file, line, column, why, and what to do.
class POSHOST_EXPORT ConfigError : public std::runtime_error
{
public:
    explicit ConfigError(const QString &text);
    ~ConfigError() override;
};

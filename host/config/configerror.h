#pragma once

#include "host/framework/spokenerror.h"

/// A configuration file that cannot be used; it says file, line, column, why, and what to do.
class POSHOST_EXPORT ConfigError : public SpokenError
{
public:
    using SpokenError::SpokenError;
    ~ConfigError() override;
};

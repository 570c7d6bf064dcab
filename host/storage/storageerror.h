#pragma once

#include "host/framework/spokenerror.h"

/// Something on disk that cannot be read, written or locked: what failed, which file, and what to
/// do.
class POSHOST_EXPORT StorageError : public SpokenError
{
public:
    using SpokenError::SpokenError;
    ~StorageError() override;
};

#pragma once

#include "host/storage/storageerror.h"

/// The queue's file is damaged: it must be set aside before it is used again.
class POSHOST_EXPORT QueueDamaged : public StorageError
{
public:
    using StorageError::StorageError;
    ~QueueDamaged() override;
};

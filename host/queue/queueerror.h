#pragma once

#include "host/storage/storageerror.h"

/// The queue must be closed and opened again before it is used any more.
class POSHOST_EXPORT QueueUnusable : public StorageError
{
public:
    using StorageError::StorageError;
    ~QueueUnusable() override;
};

/// The queue's file is damaged: it must be set aside before it is used again.
class POSHOST_EXPORT QueueDamaged : public QueueUnusable
{
public:
    using QueueUnusable::QueueUnusable;
    ~QueueDamaged() override;
};

/// The server of a shared queue cannot be reached, or does not do what it is asked. Whether what
/// was asked last has been done is unknown.
class POSHOST_EXPORT QueueUnreached : public QueueUnusable
{
public:
    using QueueUnusable::QueueUnusable;
    ~QueueUnreached() override;
};

#pragma once

#include "host/export.h"

#include <QString>

#include <stdexcept>

/// Something on disk that cannot be read, written or locked. `what()` is one line for people: what
/// failed, which file, and what to do.
class POSHOST_EXPORT StorageError : public std::runtime_error
{
public:
    explicit StorageError(const QString &text);
    ~StorageError() override;
};

#include "host/storage/storageerror.h"

StorageError::StorageError(const QString &text)
    : std::runtime_error(text.toStdString())
{ }

StorageError::~StorageError() = default;

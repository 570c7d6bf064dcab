#include "host/storage/storageerror.h"

StorageError::~StorageError() = default;

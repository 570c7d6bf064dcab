#pragma once

#include "host/documents/catalogue.h"
#include "host/storage/jsonfield.h"

/// The catalogue as it stands in its file.
namespace cataloguereader {

/// @param whole the whole file.
/// @throws StorageError that names the place and what was expected there.
[[nodiscard]] Catalogue read(const JsonField &whole);

} // namespace cataloguereader

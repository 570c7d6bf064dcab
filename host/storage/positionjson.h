#pragma once

#include "host/documents/goodsitem.h"
#include "host/storage/jsonfield.h"
#include "host/storage/jsonwriter.h"

#include <QSharedPointer>

/// The positions of a document as JSON.
namespace positionjson {

void write(JsonWriter &json, const GoodsItem &position);
/// @throws StorageError when something is missing or not as it should be.
[[nodiscard]] QSharedPointer<GoodsItem> read(const JsonField &field);

} // namespace positionjson

#pragma once

#include "host/documents/goodsitem.h"
#include "host/storage/jsonfield.h"

#include <QJsonObject>
#include <QSharedPointer>

/// The positions of a document as JSON.
namespace positionjson {

[[nodiscard]] QJsonObject write(const GoodsItem &position);
/// @throws StorageError when something is missing or not as it should be.
[[nodiscard]] QSharedPointer<GoodsItem> read(const JsonField &field);

} // namespace positionjson

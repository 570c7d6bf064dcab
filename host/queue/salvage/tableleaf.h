#pragma once

#include "host/queue/salvage/databaseimage.h"

#include <QList>
#include <QVariant>

#include <optional>

/// Rows as they stand in the leaves of a table, read without the database's own structures, of
/// which any part may be lost. Nothing in the bytes is trusted.
namespace tableleaf {

/// Where a row stands.
struct Cell
{
    qint64 rowNumber = 0;
    quint32 page = 0;
    qsizetype offset = 0; ///< in the page
};

/// The rows of a page; none when it is no leaf of a table.
[[nodiscard]] QList<Cell> cells(DatabaseImage &image, quint32 page);

/// The values of a row: null, whole number, number, text or bytes each. A row that goes on over
/// other pages is read from them.
/// @return nothing when it is not there whole, or no row at all.
[[nodiscard]] std::optional<QVariantList> values(DatabaseImage &image, const Cell &cell);

/// The values of the row that stand in its own page; nothing when not even its head does.
[[nodiscard]] std::optional<QVariantList> firstValues(DatabaseImage &image, const Cell &cell);

} // namespace tableleaf

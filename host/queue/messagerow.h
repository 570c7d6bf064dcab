#pragma once

#include "host/queue/queuemessage.h"

#include <QStringList>
#include <QVariantList>

#include <functional>

/// A message as a row of its table: times as ISO 8601 in UTC, which sorts by time; headers as JSON.
namespace messagerow {

/// Names of all columns in the order of the table.
[[nodiscard]] const QStringList &columns();
/// Names of the columns that are read without reading what is long and secret: all but headers and
/// body.
[[nodiscard]] const QStringList &shortColumns();

/// Values of the columns that a new message fills: all but the number, in the order of `columns`.
[[nodiscard]] QVariantList values(const QueueMessage &message);
/// The message of a row.
/// @param value of a column by its name; an invalid one where the row has no such column.
[[nodiscard]] QueueMessage read(const std::function<QVariant(const QString &)> &value);

/// The message without what is long and secret, as `shortColumns` give it.
[[nodiscard]] QueueMessage shortened(QueueMessage message);

/// A time as it stands in the table; empty for an invalid one.
[[nodiscard]] QString written(const QDateTime &time);
[[nodiscard]] QDateTime readTime(const QVariant &text);
[[nodiscard]] QString written(const QHash<QString, QString> &headers);
[[nodiscard]] QHash<QString, QString> readHeaders(const QVariant &text);
/// The text itself; empty in place of a null one, which would be stored as NULL.
[[nodiscard]] QString present(const QString &text);
[[nodiscard]] QByteArray present(const QByteArray &bytes);

} // namespace messagerow

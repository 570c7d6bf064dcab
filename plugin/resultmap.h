#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

/// Reading the map of a cheque answer, and of what is kept of it on the document.
namespace resultmap {

/// The number under that key; 0 where there is none.
[[nodiscard]] double amount(const QMap<QString, QVariant> &map, const QString &key);
/// Points earned: those charged less those that only count for the customer's status.
[[nodiscard]] double earned(const QMap<QString, QVariant> &map);
/// The positions by their number as a text; empty where there are none.
[[nodiscard]] QMap<QString, QVariant> positions(const QMap<QString, QVariant> &result);
/// A position's number for the host; 0, which no position has, for a key that is no number.
[[nodiscard]] int positionNumber(const QString &key);
/// Whether the map carries something under that key: an empty text counts, a null one does not.
[[nodiscard]] bool isPresent(const QMap<QString, QVariant> &map, const QString &key);
/// The messages under that key, one for a text; nothing where none is carried.
[[nodiscard]] std::optional<QStringList> messages(
    const QMap<QString, QVariant> &map, const QString &key);

} // namespace resultmap

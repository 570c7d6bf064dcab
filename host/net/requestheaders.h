#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/// Header lines "Name: value" in UTF-8, as an exchange sends them, made safe.
///
/// Of a name only what a header's name may hold is kept, of a value everything but control
/// characters, so that no value can end its line and begin another. A header whose name is empty
/// then is left out, and so are those by which the exchange itself says where the body ends.
[[nodiscard]] QList<QByteArray> headerLines(const QHash<QString, QString> &headers);

#pragma once

#include "emulator/soap/schema.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator {

/// What makes two requests the same to a replay.
struct RequestKey
{
    QString operation; ///< empty: the request cannot be read
    QString card;
    /// What a position sells, in the order of the request: "1001 × 2.000 at 45.90"; of a rollback
    /// "transaction 0000000001"; of a balance nothing.
    QStringList content;
    QByteArray bytes; ///< of a request that cannot be read

    bool isReadable() const { return !operation.isEmpty(); }
    bool operator==(const RequestKey &) const = default;
};

std::size_t qHash(const RequestKey &key, std::size_t seed = 0);

RequestKey keyOf(const QByteArray &request, const MessageSchema &schema);

/// For people, on one line: "soft, card 2900000000017, 1001 × 2.000 at 45.90".
QString description(const RequestKey &key);

/// The content alone; "nothing sold" when there is none.
QString contentDescription(const RequestKey &key);

} // namespace emulator

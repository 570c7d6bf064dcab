#pragma once

#include "host/storage/storageerror.h"

namespace till::explain {

/// A source that is there and cannot be read.
[[nodiscard]] inline StorageError unreadable(const QString &fileName, const QString &reason)
{
    return StorageError(tr::Tr(QStringLiteral("explainUnreadable"),
        QStringLiteral("%1: не читается (%2); запустите программу от имени пользователя кассы"))
                            .arg(fileName)
                            .arg(reason));
}

} // namespace till::explain

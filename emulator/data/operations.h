#pragma once

#include <QString>
#include <QStringList>

namespace emulator {

/// What a till can ask for; the names in fault words and in the data file.
enum class Operation
{
    Balance,
    Soft,
    Fiscal,
    Return,
    Rollback
};

/// "balance", "soft", "fiscal", "return", "rollback", in the order of `Operation`.
const QStringList &operationNames();

QString operationName(Operation operation);

} // namespace emulator

#pragma once

#include "emulator/recording/requestkey.h"

#include <vector>

namespace emulator {

struct RecordedRequest
{
    QString name; ///< "000001-soft"
    RequestKey key;
};

/// What of the recording comes nearest to a request that it does not hold, in words: the same
/// operation and card, of those the one with the most positions in common; the same operation
/// for other cards; nothing. Of equals the first.
QString nearestTo(const RequestKey &asked, const std::vector<RecordedRequest> &recorded);

} // namespace emulator

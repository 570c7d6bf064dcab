#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

CannotDo::CannotDo(const tr::Tr &reason, const tr::Tr &remedy)
    : SpokenError(tr::Tr(tr::undefined, u"%1; %2"_s).arg(reason).arg(remedy))
{ }

CannotDo::~CannotDo() = default;

} // namespace till

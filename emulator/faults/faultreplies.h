#pragma once

#include "emulator/faults/fault.h"
#include "emulator/http/message.h"

namespace emulator {

/// Has the fault strike an answer to a request that was acted upon.
void spoil(HttpReply &reply, const Fault &fault);

/// What is answered in place of acting; of every kind but `Code`, which is the desk's to answer.
HttpReply replyInstead(const Fault &fault);

} // namespace emulator

#pragma once

#include <QString>

namespace till {

/// Tells the emulator of the loyalty service, at the address "Till:serviceApi", to misbehave.
/// @param words the fault as the emulator takes it, such as "stop".
/// @throws CannotDo when no address is set or the emulator does not take it.
void sendFault(const QString &words);

} // namespace till

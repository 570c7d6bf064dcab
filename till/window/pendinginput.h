#pragma once

namespace till {

/// Drops what was typed and clicked while the program was busy and could not look: a cashier who
/// pressed Enter at a veil has not answered the question that comes behind it. Everything else that
/// waits is processed. On the thread of the windows.
void dropPendingInput();

} // namespace till

#pragma once

namespace till {

/// Gives all widgets of the program the window's look. Needs the application.
void applyStyle();

} // namespace till

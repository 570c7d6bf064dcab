#pragma once

#include <QStringList>

class QWidget;

/// Looks whether a window can be read: every label, button and heading of a table has room for its
/// text, and nothing lies over something else. What scrolls or elides by itself is left out.
/// @return what is wrong, one line each.
[[nodiscard]] QStringList misfitsOf(const QWidget &window);

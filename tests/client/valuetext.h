#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

/// The value in words, with everything that can differ: types, null and empty texts, numbers to the
/// last bit. Two values are the same exactly when their texts are; what is no text, number, list or
/// map of such fails.
[[nodiscard]] QString valueText(const QVariant &value);

#pragma once

#include "till/accept/expression.h"

#include <QList>
#include <QString>

#include <optional>

/// The functions that expressions may call.
namespace till::accept::functions {

/// Whether the one argument is a path or a step's name, and no value.
[[nodiscard]] bool takesPath(const QString &name);
[[nodiscard]] Value ofPath(const QString &name, const QString &path, const Dialogue &dialogue);
/// Nothing where there is no such function for so many arguments.
[[nodiscard]] std::optional<Value> ofValues(
    const QString &name, const QList<Value> &arguments, Dialogue &dialogue);

} // namespace till::accept::functions

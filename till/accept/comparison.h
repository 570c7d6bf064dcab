#pragma once

#include "till/accept/expression.h"
#include "till/accept/flow.h"

#include <QString>

#include <optional>

namespace till::accept {

/// Why a comparison does not hold.
struct Shortfall
{
    QString expected;
    QString got;
};

/// Compares. Two numbers of which one is an amount are equal when they differ by less than half a
/// hundredth, or by `within`; other texts are equal to the letter. What is not there is in no
/// relation to anything. Without elements to compare each of, a comparison holds.
/// @return nothing where it holds.
/// @throws ExpressionError
[[nodiscard]] std::optional<Shortfall> shortfallOf(
    const Comparison &comparison, Dialogue &dialogue);

} // namespace till::accept

#pragma once

#include "common/host/documents.h"

#include <QByteArray>
#include <QSharedPointer>

#include <benchmark/benchmark.h>

/// Cheques and answers of any size, such as a shop has them. The same size gives the same values
/// each time.
namespace samples {

/// What the service answers to the calculation of a cheque with so many positions: figures of the
/// cheque, a message with the texts of its coupons, coupons, positions; indented like the
/// protocol's samples.
[[nodiscard]] QByteArray answerOf(int positions);

/// A sale with a card and so many positions, each of an article with two index prices.
[[nodiscard]] QSharedPointer<AbstractDocument> chequeOf(int positions);

/// Codes of the index prices.
inline constexpr int shelfPriceCode = 5;
inline constexpr int clubPriceCode = 7;

/// The positions that a benchmark was asked for.
[[nodiscard]] inline int positionsOf(const benchmark::State &state)
{
    return static_cast<int>(state.range(0));
}

} // namespace samples

#pragma once

#include "plugin/stickeroffer.h"

#include <functional>
#include <random>
#include <string>

/// Whole numbers that are the same with every standard library.
class Dice
{
public:
    explicit Dice(std::uint32_t seed)
        : m_engine(seed)
    { }
    /// Between the two, both included.
    qint64 roll(qint64 least, qint64 most)
    {
        return least + static_cast<qint64>(m_engine()) % (most - least + 1);
    }

private:
    std::mt19937 m_engine;
};

/// One kind of random cheque.
struct OfferKind
{
    std::string name;
    std::function<double(Dice &, qint64 cost)> value;
};

/// Whole and fractional discounts, ties, values about the tolerance, values worth the same per
/// sticker, values that rounding swallows, values that bring nothing.
const std::vector<OfferKind> &offerKinds();

/// How many offers and stickers there are at most.
struct ChequeSize
{
    qint64 offers = 0;
    qint64 stickers = 0;
};

struct RandomCheque
{
    stickers::Offers offers; ///< in their order of profit
    int capacity = 0;
};

/// Costs from -1 to more than the capacity, many of 0.
RandomCheque rollCheque(Dice &dice, const OfferKind &kind, const ChequeSize &size);

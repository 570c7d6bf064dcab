#include "emulator/amounts/amount.h"

#include "emulator/amounts/decimal.h"

#include <algorithm>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int amountDecimals = 2;
constexpr int quantityDecimals = 3;
constexpr int amountDigits = 12;
constexpr int quantityDigits = 9;
constexpr qint64 hundredthsOfPercentPerWhole = 10'000;

qint64 sumOf(const std::vector<Amount> &weights)
{
    return std::accumulate(weights.begin(), weights.end(), qint64{0},
        [](qint64 sum, Amount weight) { return sum + weight.hundredths(); });
}

struct Share
{
    std::size_t index;
    qint64 whole;
    qint64 remainder;
};

std::vector<Share> roundedDown(Amount total, const std::vector<Amount> &weights, qint64 allWeights)
{
    std::vector<Share> shares;
    for (std::size_t index = 0; index < weights.size(); ++index) {
        const auto [whole, remainder]
            = multiplyAndDivide(total.hundredths(), weights[index].hundredths(), allWeights);
        shares.push_back({index, whole, remainder});
    }
    return shares;
}

} // namespace

std::optional<Amount> Amount::parse(QStringView text)
{
    const auto value = parseDecimal(text, amountDigits, amountDecimals);
    return value ? std::optional(ofHundredths(*value)) : std::nullopt;
}

QString Amount::toString() const
{
    return formatDecimal(m_hundredths, amountDecimals);
}

std::optional<Quantity> Quantity::parse(QStringView text)
{
    const auto value = parseDecimal(text, quantityDigits, quantityDecimals);
    return value ? std::optional(ofThousandths(*value)) : std::nullopt;
}

QString Quantity::toString() const
{
    return formatDecimal(m_thousandths, quantityDecimals);
}

Amount Percent::of(Amount amount) const
{
    return Amount::ofHundredths(
        multiplyAndRound(amount.hundredths(), m_hundredths, hundredthsOfPercentPerWhole));
}

Percent Percent::share(Amount part, Amount whole)
{
    if (whole == Amount())
        return {};
    return ofHundredths(
        multiplyAndRound(part.hundredths(), hundredthsOfPercentPerWhole, whole.hundredths()));
}

QString Percent::toString() const
{
    return formatDecimal(m_hundredths, amountDecimals);
}

std::optional<Amount> product(Amount price, Quantity quantity)
{
    if (exceeds(price.hundredths(), quantity.thousandths(), greatestAmount.hundredths(),
            Quantity::thousandthsPerUnit))
        return std::nullopt;
    return Amount::ofHundredths(
        multiplyAndRound(price.hundredths(), quantity.thousandths(), Quantity::thousandthsPerUnit));
}

Amount proportion(Amount amount, Quantity part, Quantity whole)
{
    return Amount::ofHundredths(
        multiplyAndRound(amount.hundredths(), part.thousandths(), whole.thousandths()));
}

Amount proportionInUnits(Amount amount, Quantity part, Quantity whole)
{
    return Amount::ofUnits(
        multiplyAndDivide(amount.wholeUnits(), part.thousandths(), whole.thousandths()).first);
}

std::vector<Amount> apportion(Amount total, const std::vector<Amount> &weights)
{
    std::vector<Amount> result(weights.size());
    const qint64 allWeights = sumOf(weights);
    if (allWeights == 0)
        return result;

    std::vector<Share> shares = roundedDown(total, weights, allWeights);
    qint64 left = total.hundredths();
    for (const Share &share : shares)
        left -= share.whole;

    std::stable_sort(shares.begin(), shares.end(),
        [](const Share &one, const Share &other) { return one.remainder > other.remainder; });
    for (const Share &share : shares)
        result[share.index] = Amount::ofHundredths(share.whole + (left-- > 0 ? 1 : 0));
    return result;
}

} // namespace emulator

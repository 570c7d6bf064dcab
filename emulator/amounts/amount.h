#pragma once

#include <QString>
#include <QStringView>

#include <compare>
#include <optional>
#include <vector>

namespace emulator {

/// Money, points or stickers, exact to the hundredth. Doubles are for the wire's readers, never for
/// the books.
class Amount
{
public:
    constexpr Amount() = default;

    static constexpr Amount ofHundredths(qint64 hundredths)
    {
        Amount amount;
        amount.m_hundredths = hundredths;
        return amount;
    }

    /// So many whole ones: roubles, points, stickers.
    static constexpr Amount ofUnits(qint64 units)
    {
        return ofHundredths(units * hundredthsPerUnit);
    }

    /// Reads "-12.34", "12.3" or "12"; nothing for anything else, non-finite numbers included,
    /// and for more than twelve digits before the point.
    static std::optional<Amount> parse(QStringView text);

    constexpr qint64 hundredths() const { return m_hundredths; }
    constexpr qint64 wholeUnits() const { return m_hundredths / hundredthsPerUnit; }

    /// Two decimals, a point, no grouping: "1234.50", "-0.05".
    QString toString() const;

    /// For JSON, whose numbers are doubles to most readers; two decimals survive that.
    double toDouble() const { return toString().toDouble(); }

    constexpr auto operator<=>(const Amount &) const = default; // NOLINT(modernize-use-nullptr)
    constexpr Amount operator-() const { return ofHundredths(-m_hundredths); }
    constexpr Amount operator+(Amount other) const
    {
        return ofHundredths(m_hundredths + other.m_hundredths);
    }
    constexpr Amount operator-(Amount other) const { return *this + -other; }
    constexpr Amount operator*(qint64 factor) const { return ofHundredths(m_hundredths * factor); }
    constexpr Amount &operator+=(Amount other) { return *this = *this + other; }
    constexpr Amount &operator-=(Amount other) { return *this = *this - other; }

private:
    static constexpr qint64 hundredthsPerUnit = 100;

    qint64 m_hundredths = 0;
};

/// The greatest amount that a position or a cheque may come to: a million million.
inline constexpr Amount greatestAmount = Amount::ofHundredths(100'000'000'000'000);

/// Pieces or weight, exact to the thousandth.
class Quantity
{
public:
    constexpr Quantity() = default;

    static constexpr Quantity ofThousandths(qint64 thousandths)
    {
        Quantity quantity;
        quantity.m_thousandths = thousandths;
        return quantity;
    }

    /// Reads "1.500"; at most nine digits before and three behind the point.
    static std::optional<Quantity> parse(QStringView text);

    constexpr qint64 thousandths() const { return m_thousandths; }
    constexpr qint64 wholeUnits() const { return m_thousandths / thousandthsPerUnit; }
    QString toString() const;

    constexpr auto operator<=>(const Quantity &) const = default; // NOLINT(modernize-use-nullptr)
    constexpr Quantity operator+(Quantity other) const
    {
        return ofThousandths(m_thousandths + other.m_thousandths);
    }
    constexpr Quantity operator-(Quantity other) const
    {
        return ofThousandths(m_thousandths - other.m_thousandths);
    }
    constexpr Quantity &operator+=(Quantity other) { return *this = *this + other; }
    constexpr Quantity &operator-=(Quantity other) { return *this = *this - other; }

    static constexpr qint64 thousandthsPerUnit = 1000;

private:
    qint64 m_thousandths = 0;
};

/// A rate in per cent, exact to the hundredth of a per cent.
class Percent
{
public:
    constexpr Percent() = default;

    static constexpr Percent ofHundredths(qint64 hundredths)
    {
        Percent percent;
        percent.m_hundredths = hundredths;
        return percent;
    }

    constexpr qint64 hundredths() const { return m_hundredths; }

    /// This share of the amount, rounded half up to the hundredth.
    Amount of(Amount amount) const;

    /// What per cent `part` is of `whole`, rounded half up; zero of nothing is zero.
    static Percent share(Amount part, Amount whole);

    QString toString() const;

    constexpr auto operator<=>(const Percent &) const = default;

private:
    qint64 m_hundredths = 0;
};

/// Price × quantity, rounded half up to the hundredth; nothing above `greatestAmount`.
std::optional<Amount> product(Amount price, Quantity quantity);

/// amount × part / whole, rounded half up; `whole` must be greater than zero.
Amount proportion(Amount amount, Quantity part, Quantity whole);

/// The same rounded down to whole units; the amount must not be negative.
Amount proportionInUnits(Amount amount, Quantity part, Quantity whole);

/// Splits `total` by the weights, exact to the hundredth: the shares add up to the total, and
/// the hundredths left over go to the greatest remainders, the first of equals first.
/// No share exceeds its weight as long as the total does not exceed the sum of the weights.
/// Weights must not be negative; without any weight nothing is shared out.
std::vector<Amount> apportion(Amount total, const std::vector<Amount> &weights);

} // namespace emulator

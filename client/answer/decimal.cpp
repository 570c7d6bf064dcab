#include "client/answer/decimal.h"

#include <array>
#include <optional>

namespace korvelLoyaltyOnline {

namespace {

constexpr char16_t point = u'.';

/// Every whole number of so many digits is a double.
constexpr qsizetype exactDigits = 15;

/// Powers of ten are doubles up to 10²², so the one rounding of the division is the right one.
constexpr std::array<double, exactDigits> powersOfTen
    = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// Nothing unless the text is digits, few enough, with at most one point.
std::optional<double> plainDecimal(QStringView text)
{
    constexpr qsizetype none = -1;
    if (text.size() > exactDigits)
        return std::nullopt;
    qint64 digits = 0;
    qsizetype pointAt = none;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (isDigit(unit))
            digits = 10 * digits + (unit - u'0');
        else if (unit == point && pointAt == none)
            pointAt = i;
        else
            return std::nullopt;
    }
    const qsizetype fraction = pointAt == none ? 0 : text.size() - pointAt - 1;
    return static_cast<double>(digits) / powersOfTen[static_cast<std::size_t>(fraction)];
}

} // namespace

double decimal(const QString &text)
{
    const std::optional<double> plain = plainDecimal(text);
    return plain ? *plain : text.toDouble();
}

} // namespace korvelLoyaltyOnline

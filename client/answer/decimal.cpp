#include "client/answer/decimal.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace korvelLoyaltyOnline {

namespace {

constexpr char16_t point = u'.';

/// Every whole number of so many digits is a double.
constexpr qsizetype exactDigits = 15;

/// No amount is longer. `QString` takes a second for a number of eight million digits.
constexpr qsizetype longestAmount = 1000;

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

bool isOfNumber(char byte)
{
    constexpr std::string_view signs = ".+-eE";
    return isDigit(static_cast<char16_t>(byte)) || signs.find(byte) != std::string_view::npos;
}

/// Only for texts longer than any name of a number that is none, as "inf".
double endlessDecimal(QStringView text)
{
    constexpr QChar minus = u'\u2212';
    QByteArray bytes = text.toString().replace(minus, u'-').toLatin1();
    if (!std::all_of(bytes.cbegin(), bytes.cend(), &isOfNumber))
        return 0.0;
    static const locale_t plain = ::newlocale(LC_ALL_MASK, "C", nullptr);
    char *end = nullptr;
    const double number = ::strtod_l(bytes.constData(), &end, plain);
    return end == bytes.cend() ? number : 0.0;
}

} // namespace

double decimal(const QString &text)
{
    const std::optional<double> plain = plainDecimal(text);
    if (plain)
        return *plain;
    const QStringView trimmed = QStringView(text).trimmed();
    return trimmed.size() > longestAmount ? endlessDecimal(trimmed) : trimmed.toDouble();
}

} // namespace korvelLoyaltyOnline

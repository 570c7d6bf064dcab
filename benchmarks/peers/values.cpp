#include "benchmarks/peers/values.h"

#include "client/couponmessage.h"
#include "common/names.h"

#include <array>
#include <charconv>

namespace peers {

double numberOf(std::string_view text)
{
    double number = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

QString textOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fixed(double value, int decimals)
{
    constexpr std::size_t longest = 400;
    std::array<char, longest> text;
    const auto end = std::to_chars(
        text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

void insertCoupons(const QString &message, const QStringList &numbers, Values &result)
{
    using namespace korvel;
    const QString delimiter = QStringLiteral("\u2013\u2013");
    const QStringList texts = korvelLoyaltyOnline::textsOfCoupons(message, delimiter);
    result.insert(
        result::chequeMessage, korvelLoyaltyOnline::textBeforeCoupons(message, delimiter));
    QList<QVariant> coupons;
    for (const QString &number : numbers) {
        const auto found = std::find_if(texts.cbegin(), texts.cend(),
            [&number](const QString &text) { return text.contains(number); });
        coupons.append(Values{{result::couponNumber, number},
            {result::couponMessage, found == texts.cend() ? QString() : found->trimmed()}});
    }
    if (!coupons.isEmpty())
        result.insert(result::couponsToPrint, coupons);
}

} // namespace peers

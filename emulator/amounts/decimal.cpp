#include "emulator/amounts/decimal.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

// A price times a quantity does not fit into 64 bits.
__extension__ using Wide = __int128;

bool isDigits(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

Wide wideProduct(qint64 a, qint64 b)
{
    return static_cast<Wide>(a) * static_cast<Wide>(b);
}

} // namespace

std::optional<qint64> parseDecimal(QStringView text, int digits, int decimals)
{
    const bool negative = text.startsWith(u'-');
    if (negative)
        text = text.mid(1);
    const qsizetype point = text.indexOf(u'.');
    const QStringView whole = point < 0 ? text : text.left(point);
    const QStringView fraction = point < 0 ? QStringView() : text.mid(point + 1);
    if (whole.isEmpty() || whole.size() > digits || (point >= 0 && fraction.isEmpty())
        || fraction.size() > decimals || !isDigits(whole) || !isDigits(fraction))
        return std::nullopt;

    const QString units = whole.toString() + fraction.toString().leftJustified(decimals, u'0');
    const qint64 value = units.toLongLong();
    return negative ? -value : value;
}

QString formatDecimal(qint64 units, int decimals)
{
    const QString digits
        = QString::number(units < 0 ? -units : units).rightJustified(decimals + 1, u'0');
    const qsizetype point = digits.size() - decimals;
    const QString sign = units < 0 ? u"-"_s : QString();
    return sign + digits.left(point) + u'.' + digits.mid(point);
}

qint64 multiplyAndRound(qint64 a, qint64 b, qint64 c)
{
    const Wide product = wideProduct(a, b);
    // Halves of an odd divisor never occur, so dividing it down loses nothing.
    const Wide half = c / 2;
    return static_cast<qint64>((product < 0 ? product - half : product + half) / c);
}

std::pair<qint64, qint64> multiplyAndDivide(qint64 a, qint64 b, qint64 c)
{
    const Wide product = wideProduct(a, b);
    return {static_cast<qint64>(product / c), static_cast<qint64>(product % c)};
}

bool exceeds(qint64 a, qint64 b, qint64 limit, qint64 scale)
{
    const Wide product = wideProduct(a, b);
    return (product < 0 ? -product : product) > wideProduct(limit, scale);
}

} // namespace emulator

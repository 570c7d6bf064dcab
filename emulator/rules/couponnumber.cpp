#include "emulator/rules/couponnumber.h"

namespace emulator {

namespace {

constexpr int digitsBeforeCheck = 12;
constexpr int decimalBase = 10;
constexpr int weightOfEvenPlaces = 3;

QChar checkDigit(const QString &digits)
{
    int sum = 0;
    for (qsizetype place = 0; place < digits.size(); ++place)
        sum += digits.at(place).digitValue() * (place % 2 == 0 ? 1 : weightOfEvenPlaces);
    return QChar(u'0' + (decimalBase - sum % decimalBase) % decimalBase);
}

} // namespace

QString couponNumber(const QString &prefix, qint64 sequence)
{
    const auto width = digitsBeforeCheck - prefix.size();
    const QString digits = prefix + QString::number(sequence).rightJustified(width, u'0');
    return digits + checkDigit(digits);
}

} // namespace emulator

#include "emulator/recording/cardmask.h"

#include <QRegularExpression>

#include <algorithm>
#include <cctype>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr qsizetype shownAtEachEnd = 4;

bool isDigit(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

} // namespace

QByteArray maskedNumber(const QByteArray &number)
{
    const qsizetype digits = std::count_if(number.begin(), number.end(), isDigit);
    QByteArray masked = number;
    qsizetype place = 0;
    for (char &c : masked) {
        if (!isDigit(c))
            continue;
        if (place >= shownAtEachEnd && place < digits - shownAtEachEnd)
            c = '*';
        ++place;
    }
    return masked;
}

QList<QByteArray> cardNumbersIn(const QByteArray &message)
{
    static const QRegularExpression element(
        uR"(<(?:[^\s<>/:]+:)?CardNumber(?:\s[^<>]*)?>\s*(?:<!\[CDATA\[)?\s*([^\s<\]]+))"_s);
    QList<QByteArray> numbers;
    // Latin-1 has a character for every byte, whatever the message's own encoding is.
    auto matches = element.globalMatch(QString::fromLatin1(message));
    while (matches.hasNext()) {
        const QByteArray number = matches.next().captured(1).toLatin1();
        if (!numbers.contains(number))
            numbers.append(number);
    }
    std::stable_sort(numbers.begin(), numbers.end(),
        [](const QByteArray &a, const QByteArray &b) { return a.size() > b.size(); });
    return numbers;
}

QByteArray withMasked(QByteArray text, const QList<QByteArray> &numbers)
{
    for (const QByteArray &number : numbers)
        text.replace(number, maskedNumber(number));
    return text;
}

QByteArray withUnmasked(QByteArray text, const QList<QByteArray> &numbers)
{
    for (const QByteArray &number : numbers)
        text.replace(maskedNumber(number), number);
    return text;
}

} // namespace emulator

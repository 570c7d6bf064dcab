#include "tests/kills/shopping.h"

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

// As likely as they stand here; the last one may not be used.
const QStringList cards{u"2900000000017"_s, u"2900000000017"_s, u"2900000000024"_s,
    u"2900000000024"_s, u"2900000000062"_s, u"2900000000062"_s, u"2900000000031"_s};
const QStringList goods{u"add 1001"_s, u"add 1002 3"_s, u"add 1003 0.455"_s, u"add 1004"_s,
    u"add 1004 2"_s, u"add 1005 4"_s, u"add 1006 1.275"_s, u"add 1007 2"_s, u"add 1008"_s,
    u"add 1009 2"_s, u"add 1010"_s, u"input 4600000010022"_s, u"input 4600000010077"_s};
const QStringList markdown{u"input 4600000010114MARKDOWN30"_s,
    u"add 1001 1 raw=4600000010015MARKDOWN50 options=MARKDOWN50"_s};
const QStringList coupons{u"coupon 9900000000018"_s, u"coupon 9900000000025"_s,
    u"coupon 9900000000049 raw=99MARKDOWN30"_s};
// From a little over a code that is asked for to more than most customers buy for.
const QStringList pointsPaid{u"points 5"_s, u"points 20.5"_s, u"points 49.99"_s, u"points 60"_s,
    u"points 120"_s, u"points"_s};
const QStringList choices{u"answer ok"_s, u"answer cancel"_s};

constexpr quint32 greatestPositions = 5;

// In percent: how often a customer does what.
constexpr quint32 showsCard = 85;
constexpr quint32 takesMarkdown = 15;
constexpr quint32 bringsCoupon = 20;
constexpr quint32 wantsMore = 15;
constexpr quint32 changesMind = 10;
constexpr quint32 isCalculated = 80; // without a card; with one always
constexpr quint32 paysWithPoints = 45;
constexpr quint32 mistypesCode = 8;
constexpr quint32 paysByCard = 30;
constexpr quint32 buys = 90;
constexpr quint32 bringsAllBack = 40;
constexpr quint32 leavesPosition = 40;
constexpr quint32 leavesUnit = 50;

QStringList calculation(Dice &dice)
{
    return {dice.oneOf(choices), u"total"_s};
}

QString article(Dice &dice)
{
    return dice.oneOf(dice.falls(takesMarkdown) ? markdown : goods);
}

QStringList basket(Dice &dice)
{
    QStringList commands;
    const quint32 positions = 1 + dice.below(greatestPositions);
    for (quint32 position = 0; position < positions; ++position)
        commands.append(article(dice));
    if (dice.falls(bringsCoupon))
        commands.append(dice.oneOf(coupons));
    // A code that is scanned twice may make one position, and a cheque needs one.
    if (dice.falls(changesMind))
        commands << u"storno 1"_s << u"add 1010"_s;
    return commands;
}

QStringList payment(Dice &dice)
{
    QStringList commands;
    if (dice.falls(paysWithPoints))
        commands << (dice.falls(mistypesCode) ? u"answer text 0000"_s : u"answer text 4829"_s)
                 << dice.oneOf(pointsPaid);
    if (dice.falls(paysByCard))
        commands.append(u"pay card"_s);
    return commands;
}

QString end(Dice &dice)
{
    return dice.falls(buys) ? u"close"_s : u"cancel"_s;
}

bool hasSeveralWholeUnits(double quantity)
{
    return quantity >= 2 && std::floor(quantity) == quantity;
}

// Of what is left of it: nothing, all or a unit less; nothing more is decided when nothing is left.
double wanted(Dice &dice, double left)
{
    if (left <= 0 || dice.falls(leavesPosition))
        return 0;
    return hasSeveralWholeUnits(left) && dice.falls(leavesUnit) ? left - 1 : left;
}

QString takenFrom(int position, double sold, double quantity)
{
    if (quantity == sold)
        return {};
    return quantity <= 0 ? u"storno %1"_s.arg(position)
                         : u"quantity %1 %2"_s.arg(position).arg(quantity);
}

double sum(const Quantities &quantities)
{
    return std::accumulate(quantities.cbegin(), quantities.cend(), 0.0);
}

} // namespace

QStringList sale(Dice &dice)
{
    QStringList commands;
    const bool hasCard = dice.falls(showsCard);
    if (hasCard)
        commands.append(u"card "_s + dice.oneOf(cards));
    commands += basket(dice);
    if (hasCard || dice.falls(isCalculated)) {
        commands += calculation(dice);
        if (dice.falls(wantsMore))
            commands += QStringList{article(dice)} + calculation(dice);
        commands += payment(dice);
    }
    return commands << end(dice);
}

Quantities left(const Json &sale, const std::vector<Json> &documents)
{
    Quantities quantities;
    const auto count = [&](const Json &document, int sign) {
        for (const Json &position : document.at("positions"))
            quantities[position.at("number").get<int>()]
                += sign * position.at("sums").at("quantity").get<double>();
    };
    count(sale, 1);
    for (const Json &document : documents)
        if (document.at("refersTo") == sale.at("number"))
            count(document, -1);
    return quantities;
}

QStringList returned(Dice &dice, const Json &document, const Quantities &left)
{
    const bool isWhole = dice.falls(bringsAllBack);
    Quantities quantities;
    for (auto position = left.cbegin(); position != left.cend(); ++position)
        quantities[position.key()] = isWhole ? position.value() : wanted(dice, position.value());
    if (sum(quantities) <= 0)
        quantities = left;
    QStringList commands;
    for (const Json &position : document.at("positions")) {
        const int number = position.at("number");
        const QString command
            = takenFrom(number, position.at("quantity"), quantities.value(number));
        if (!command.isEmpty())
            commands.append(command);
    }
    return commands << end(dice);
}

} // namespace kills

#include "tests/plugin/randomoffers.h"

#include "plugin/stickerorder.h"

namespace {

double inParts(qint64 parts, double partsPerUnit)
{
    return static_cast<double>(parts) / partsPerUnit;
}

qint64 rollCost(Dice &dice, int capacity)
{
    const qint64 dear = dice.roll(0, 5);
    if (dear == 0)
        return dice.roll(-1, 0);
    return dice.roll(1, capacity / dear + 2);
}

} // namespace

const std::vector<OfferKind> &offerKinds()
{
    static const std::vector<OfferKind> kinds{
        {"few whole values", [](Dice &dice, qint64) { return inParts(dice.roll(0, 5), 1.0); }},
        {"kopecks", [](Dice &dice, qint64) { return inParts(dice.roll(-200, 2000), 100.0); }},
        {"millionths", [](Dice &dice, qint64) { return inParts(dice.roll(1, 9999999), 1e6); }},
        {"about the tolerance",
            [](Dice &dice, qint64) { return inParts(dice.roll(-2, 8), 800.0); }},
        {"ties but for the tolerance",
            [](Dice &dice, qint64) { return 1.0 + inParts(dice.roll(-6, 6), 400.0); }},
        {"hardly off kopecks",
            [](Dice &dice, qint64) {
                return inParts(dice.roll(1, 300), 100.0) + inParts(dice.roll(-3, 3), 2e9);
            }},
        {"thousandths about kopecks",
            [](Dice &dice, qint64) {
                return inParts(dice.roll(1, 3) * 10 + dice.roll(-5, 5), 1e3);
            }},
        {"worth the same per sticker",
            [](Dice &dice, qint64 cost) {
                return 0.1 * inParts(cost, 1.0) + inParts(dice.roll(0, 1), 300.0);
            }},
        {"swallowed by rounding",
            [](Dice &dice, qint64) {
                return inParts(dice.roll(1, 9), dice.roll(0, 1) != 0 ? 1e-15 : 7.0);
            }},
    };
    return kinds;
}

RandomCheque rollCheque(Dice &dice, const OfferKind &kind, const ChequeSize &size)
{
    RandomCheque cheque;
    cheque.capacity = static_cast<int>(dice.roll(0, size.stickers));
    stickers::Offers offers;
    for (qint64 count = dice.roll(1, size.offers); count > 0; --count) {
        const qint64 cost = rollCost(dice, cheque.capacity);
        offers.push_back({cost, kind.value(dice, cost)});
    }
    for (const std::size_t index : stickers::profitOrder(offers))
        cheque.offers.push_back(offers[index]);
    return cheque;
}

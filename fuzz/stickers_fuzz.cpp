// Sticker actions as attributes of positions: {"capacity": N, "positions": {"1": {"Interchange":
// ACTION}}}, an ACTION being the attribute's text, or an object that becomes it. The choice must be
// payable and as good as that of the plain table.

#include "fuzz/measure.h"

#include "common/names.h"
#include "plugin/stickeractions.h"
#include "plugin/stickerchoice.h"
#include "plugin/stickerorder.h"
#include "plugin/stickerselection.h"
#include "plugin/stickertable.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

using Values = QMap<QString, QVariant>;
namespace key = stickeractions::key;

const QString marker = u"Interchange"_s;

QString textOf(const QJsonValue &action)
{
    return action.isString()
        ? action.toString()
        : QString::fromUtf8(QJsonDocument(action.toObject()).toJson(QJsonDocument::Compact));
}

Values positionsOf(const QJsonObject &described)
{
    Values positions;
    for (auto position = described.begin(); position != described.end(); ++position) {
        Values attributes;
        const QJsonObject actions = position.value().toObject();
        for (auto action = actions.begin(); action != actions.end(); ++action)
            attributes.insert(action.key(), textOf(action.value()));
        positions.insert(position.key(), Values{{korvel::result::extendedAttributes, attributes}});
    }
    return positions;
}

/// As the plug-in sees the actions, in their order of profit.
stickers::Offers offersOf(const QList<QVariant> &actions)
{
    stickers::Offers offers;
    for (const QVariant &action : actions) {
        const Values values = action.toMap();
        const int units = values.value(key::amount).toInt();
        offers.push_back({qint64{values.value(key::promocoupons).toInt()} * units,
            values.value(key::discount).toDouble() * units});
    }
    return offers;
}

/// Of all that can be taken; the rest changes nothing.
bool isFinite(const stickers::Offers &offers, int capacity)
{
    double sum = 0.0;
    for (const stickers::Offer &offer : offers)
        if (stickers::isPayable(offer, capacity) && !(offer.value <= 0.0))
            sum += offer.value;
    return std::isfinite(sum);
}

/// A choice from many offers for very many stickers may take its tenths of a second, and so may one
/// of values that are no money; under the sanitizers twenty times that: it is measured by the
/// benchmarks.
bool isQuick(const stickers::Offers &offers, int capacity)
{
    constexpr std::size_t fewOffers = 12;
    constexpr qint64 smallTable = 1 << 17;
    return (offers.size() <= fewOffers && isFinite(offers, capacity))
        || stickers::tableCells(offers, capacity) <= smallTable;
}

void requirePayable(const stickers::Offers &offers, const stickers::Chosen &chosen, int capacity)
{
    qint64 cost = 0;
    for (std::size_t index = 0; index < offers.size(); ++index)
        cost += chosen[index] ? offers[index].cost : 0;
    fuzz::require(cost <= std::max(capacity, 0), "the stickers pay for what is chosen");
}

void requireBest(const stickers::Offers &offers, const stickers::Choice &choice, int capacity)
{
    constexpr qint64 quickTable = 1 << 16;
    if (choice.isBest && isFinite(offers, capacity)
        && stickers::tableCells(offers, capacity) <= quickTable)
        fuzz::require(choice.chosen == stickers::chooseByTable(offers, capacity),
            "the choice is that of the table");
}

/// By their steps whatever their number, which otherwise only large tables come to.
void requireSameBySteps(const stickers::Offers &offers, int capacity)
{
    stickers::ChoiceLimits onlySteps;
    onlySteps.smallTable = 0;
    requireBest(offers, stickers::choose(offers, capacity, onlySteps), capacity);
}

bool chooseStickers(const QByteArray &input)
{
    const QJsonObject root = QJsonDocument::fromJson(input).object();
    const Values positions = positionsOf(root[u"positions"_s].toObject());
    if (!stickeractions::exist(positions, marker))
        return false;
    QList<QVariant> actions = stickeractions::found(positions, marker);
    const stickeractions::Demand demand = stickeractions::demandOf(actions);
    (void)stickers::spendable(demand.balance);
    const int capacity = stickers::spendable(root[u"capacity"_s].toDouble());
    if (!isQuick(offersOf(actions), capacity))
        return true;
    const stickers::Selection selection = stickers::selectMostProfitable(actions, capacity);
    (void)stickeractions::removed(positions, selection.positionsToRemove, marker);

    const stickers::Offers offers = offersOf(actions);
    const stickers::Choice choice = stickers::choose(offers, capacity);
    requirePayable(offers, choice.chosen, capacity);
    requireBest(offers, choice, capacity);
    requireSameBySteps(offers, capacity);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, chooseStickers);
}

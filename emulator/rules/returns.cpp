#include "emulator/rules/returns.h"

#include <QHash>

#include <algorithm>
#include <deque>

namespace emulator {

namespace {

/// What is due of `whole` once `quantity` more has come back, less what was due before.
Amount due(Amount whole, Amount before, const SoldPosition &sold, Quantity quantity)
{
    const Amount together = proportion(whole, sold.returned + quantity, sold.quantity);
    // An earlier part that was rolled back can leave a rounding of one hundredth too much.
    return std::max(Amount(), together - before);
}

Amount dueStickers(const SoldPosition &sold, Quantity quantity)
{
    const Amount together
        = proportionInUnits(sold.stickers, sold.returned + quantity, sold.quantity);
    return std::max(Amount(), together - sold.stickersReturned);
}

ReturnedPart takePart(SoldPosition &sold, const RequestPosition &returned, Quantity quantity)
{
    ReturnedPart part;
    part.number = returned.number;
    part.salePosition = sold.number;
    part.article = returned.article;
    part.price = returned.price;
    part.quantity = quantity;
    part.sum = due(sold.sum, sold.sumReturned, sold, quantity);
    part.sumDiscounted = due(sold.sumDiscounted, sold.sumDiscountedReturned, sold, quantity);
    part.takeBack = due(sold.earned, sold.earnedReturned, sold, quantity);
    part.takeBackStatus = due(sold.earnedStatus, sold.statusReturned, sold, quantity);
    part.giveBack = due(sold.spent, sold.spentReturned, sold, quantity);
    part.giveBackStickers = dueStickers(sold, quantity);

    sold.returned += quantity;
    sold.sumReturned += part.sum;
    sold.sumDiscountedReturned += part.sumDiscounted;
    sold.earnedReturned += part.takeBack;
    sold.statusReturned += part.takeBackStatus;
    sold.spentReturned += part.giveBack;
    sold.stickersReturned += part.giveBackStickers;
    return part;
}

Quantity leftOf(const SoldPosition &sold)
{
    return sold.quantity - sold.returned;
}

/// The sold positions, found without going through all of them for each that comes back.
class Shelf
{
public:
    explicit Shelf(std::vector<SoldPosition> sold)
        : m_sold(std::move(sold))
    {
        for (std::size_t index = 0; index < m_sold.size(); ++index) {
            m_byNumber.insert(m_sold[index].number, index);
            m_byArticle[m_sold[index].article].push_back(index);
        }
    }

    /// The one to take from next, null when nothing of the article is left.
    SoldPosition *next(const RequestPosition &returned)
    {
        const auto own = m_byNumber.constFind(returned.number);
        if (own != m_byNumber.constEnd() && suits(m_sold[*own], returned))
            return &m_sold[*own];
        std::deque<std::size_t> &others = m_byArticle[returned.article];
        while (!others.empty() && !suits(m_sold[others.front()], returned))
            others.pop_front();
        return others.empty() ? nullptr : &m_sold[others.front()];
    }

private:
    static bool suits(const SoldPosition &sold, const RequestPosition &returned)
    {
        return sold.article == returned.article && leftOf(sold) > Quantity();
    }

    std::vector<SoldPosition> m_sold;
    QHash<int, std::size_t> m_byNumber;
    QHash<QString, std::deque<std::size_t>> m_byArticle;
};

} // namespace

std::optional<std::vector<ReturnedPart>> planReturn(
    std::vector<SoldPosition> sold, const std::vector<RequestPosition> &returned)
{
    Shelf shelf(std::move(sold));
    std::vector<ReturnedPart> parts;
    for (const RequestPosition &position : returned) {
        for (Quantity left = position.quantity; left > Quantity(); left -= parts.back().quantity) {
            SoldPosition *from = shelf.next(position);
            if (!from)
                return {};
            parts.push_back(takePart(*from, position, std::min(left, leftOf(*from))));
        }
    }
    return parts;
}

} // namespace emulator

#include "emulator/rules/wish.h"

namespace emulator {

namespace {

bool repeatsFigures(const SaleRequest &sale, const LastCalculation &last)
{
    return sale.sum == last.sum && sale.discount == last.discount
        && sale.sumDiscounted == last.sumDiscounted;
}

bool isMeant(const SaleRequest &sale, const std::optional<LastCalculation> &last)
{
    if (sale.paidByBonus != sale.sumDiscounted)
        return true;
    if (!last)
        return false;
    if (sale.fiscal)
        return last->wish == sale.paidByBonus;
    return !last->isOver && repeatsFigures(sale, *last);
}

} // namespace

Amount wishOf(const SaleRequest &sale, const std::optional<LastCalculation> &last)
{
    return isMeant(sale, last) ? sale.paidByBonus : Amount();
}

} // namespace emulator

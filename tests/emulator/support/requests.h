#pragma once

#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

#include <initializer_list>

namespace emulator {

Amount amount(const char *text);
Quantity quantity(const char *text);

/// A position as a test writes it down.
struct Sold
{
    const char *article;
    const char *price;
    const char *quantity;
    const char *minimumPrice = "0.00";
};

/// Positions numbered from 1.
std::vector<RequestPosition> positions(std::initializer_list<Sold> sold);

inline constexpr const char *testCard = "2900000000017";

/// The first calculation of a cheque: "PaidByBonus" is the sum, as tills send it.
SaleRequest firstSoft(const QString &number, std::initializer_list<Sold> sold);

/// The next request of the cheque: the figures of the last answer, and the wish.
SaleRequest nextSoft(SaleRequest sale, const ChequeFigures &last, Amount points);
SaleRequest fiscal(SaleRequest sale, const ChequeFigures &last, Amount points);

/// A registration by a till that has never reached the service.
SaleRequest offlineFiscal(const QString &number, std::initializer_list<Sold> sold);

ReturnRequest returnOf(
    const QString &sale, const QString &number, std::initializer_list<Sold> returned);

} // namespace emulator

#include "tests/emulator/support/requests.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

Till till()
{
    return {u"Korvel"_s, u"1"_s, u"1"_s};
}

Amount sumOf(const std::vector<RequestPosition> &positions)
{
    Amount sum;
    for (const RequestPosition &position : positions)
        sum += position.sum;
    return sum;
}

SaleRequest withFigures(SaleRequest sale, const ChequeFigures &last, Amount points)
{
    sale.sum = last.sum;
    sale.discount = last.sum - last.sumDiscounted;
    sale.sumDiscounted = last.sumDiscounted;
    sale.paidByBonus = points;
    return sale;
}

} // namespace

Amount amount(const char *text)
{
    return Amount::parse(QString::fromLatin1(text)).value();
}

Quantity quantity(const char *text)
{
    return Quantity::parse(QString::fromLatin1(text)).value();
}

std::vector<RequestPosition> positions(std::initializer_list<Sold> sold)
{
    std::vector<RequestPosition> result;
    for (const Sold &one : sold) {
        RequestPosition position;
        position.number = static_cast<int>(result.size()) + 1;
        position.article = QString::fromUtf8(one.article);
        position.price = amount(one.price);
        position.quantity = quantity(one.quantity);
        position.minimumPrice = amount(one.minimumPrice);
        position.sum = product(position.price, position.quantity).value();
        result.push_back(position);
    }
    return result;
}

SaleRequest firstSoft(const QString &number, std::initializer_list<Sold> sold)
{
    SaleRequest sale;
    sale.till = till();
    sale.card = QString::fromLatin1(testCard);
    sale.number = number;
    sale.positions = positions(sold);
    sale.sum = sumOf(sale.positions);
    sale.sumDiscounted = sale.sum;
    sale.paidByBonus = sale.sum;
    return sale;
}

SaleRequest nextSoft(SaleRequest sale, const ChequeFigures &last, Amount points)
{
    return withFigures(std::move(sale), last, points);
}

SaleRequest fiscal(SaleRequest sale, const ChequeFigures &last, Amount points)
{
    sale.fiscal = true;
    return withFigures(std::move(sale), last, points);
}

SaleRequest offlineFiscal(const QString &number, std::initializer_list<Sold> sold)
{
    SaleRequest sale = firstSoft(number, sold);
    sale.fiscal = true;
    return sale;
}

ReturnRequest returnOf(
    const QString &sale, const QString &number, std::initializer_list<Sold> returned)
{
    ReturnRequest request;
    request.till = till();
    request.card = QString::fromLatin1(testCard);
    request.number = number;
    request.sale.till = till();
    request.sale.number = sale;
    request.positions = positions(returned);
    return request;
}

} // namespace emulator

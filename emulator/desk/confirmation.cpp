#include "emulator/desk/confirmation.h"

#include <QRandomGenerator>

namespace emulator {

namespace {

constexpr int codeDigits = 6;
constexpr int codesEnd = 1'000'000;

QString randomCode()
{
    return QString::number(QRandomGenerator::system()->bounded(codesEnd))
        .rightJustified(codeDigits, u'0');
}

bool needsConfirmation(const SaleRequest &request, Amount points, const Spending &rules)
{
    if (points == Amount())
        return false;
    const bool tillWants = request.confirmation && request.confirmation->confirm;
    return tillWants || (rules.confirmAbove && points > *rules.confirmAbove);
}

} // namespace

QString issueCode(const SaleRequest &request, Amount points, const Spending &rules)
{
    if (points == Amount() || !request.confirmation || !request.confirmation->sendCode)
        return {};
    return rules.code.isEmpty() ? randomCode() : rules.code;
}

bool isConfirmed(const SaleRequest &request, Amount points, const Spending &rules,
    const std::optional<LastCalculation> &last)
{
    if (!needsConfirmation(request, points, rules))
        return true;
    return request.confirmation && request.confirmation->confirm && last && last->wish == points
        && !last->code.isEmpty() && last->code == request.confirmation->code;
}

} // namespace emulator

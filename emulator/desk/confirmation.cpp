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

bool isIssued(const std::optional<LastCalculation> &last, Amount points)
{
    return last && last->wish == points && !last->code.isEmpty();
}

bool carriesCode(const Confirmation &confirmation, const QString &code)
{
    return confirmation.confirm && confirmation.code == code;
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
    if (!isIssued(last, points))
        return points == Amount() || !rules.confirmAbove || points <= *rules.confirmAbove;
    // A registration from the queue carries no confirmation; its till has compared the code when
    // the holder told it, and has sold the goods.
    return !request.confirmation || carriesCode(*request.confirmation, last->code);
}

} // namespace emulator

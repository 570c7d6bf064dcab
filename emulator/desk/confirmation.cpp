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

} // namespace

bool isCodeVoid(
    const QDateTime &issued, int wrongCodes, const Spending &rules, const QDateTime &now)
{
    constexpr qint64 secondsPerMinute = 60;
    const bool isTooOld
        = rules.codeMinutes && issued.secsTo(now) >= *rules.codeMinutes * secondsPerMinute;
    return isTooOld || (rules.codeAttempts && wrongCodes >= *rules.codeAttempts);
}

QString issueCode(const SaleRequest &request, Amount points, const Spending &rules)
{
    if (points == Amount() || !request.confirmation || !request.confirmation->sendCode)
        return {};
    return rules.code.isEmpty() ? randomCode() : rules.code;
}

Verdict verdictOn(const SaleRequest &request, Amount points, const Spending &rules,
    const std::optional<LastCalculation> &last, const QDateTime &now)
{
    if (!isIssued(last, points)) {
        const bool isFree
            = points == Amount() || !rules.confirmAbove || points <= *rules.confirmAbove;
        return isFree ? Verdict::Confirmed : Verdict::NoCode;
    }
    // A registration from the queue carries no confirmation; its till has compared the code when
    // the holder told it, and has sold the goods.
    if (!request.confirmation)
        return Verdict::Confirmed;
    if (!request.confirmation->confirm || request.confirmation->code.isEmpty())
        return Verdict::NoCode;
    if (isCodeVoid(last->codeIssued, last->wrongCodes, rules, now))
        return Verdict::CodeIsVoid;
    return request.confirmation->code == last->code ? Verdict::Confirmed : Verdict::WrongCode;
}

} // namespace emulator

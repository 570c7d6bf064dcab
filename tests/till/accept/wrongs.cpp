#include "tests/till/accept/wrongs.h"

#include "tests/till/accept/flowrequests.h"
#include "tests/till/accept/message.h"
#include "tests/till/accept/ways.h"

#include <memory>
#include <ostream>
#include <utility>

using namespace Qt::StringLiterals;
using namespace flowrequests;
using namespace message;
using namespace ways;

namespace {

const QByteArray unknownCard = "80241";
const QByteArray notEnough = "81400";
const QByteArray notThere = "89184";
const QByteArray unheardOf = "80001";

/// The second rollback of a transaction is refused.
Change rollbackOnce()
{
    return [seen = std::make_shared<QByteArrayList>()](const QByteArray &request, const Ask &ask) {
        const QByteArray transaction = valueOf(request, "TransactionID");
        if (isRollback(request) && seen->contains(transaction))
            return HttpMessage{refusal(notThere)};
        if (isRollback(request))
            seen->append(transaction);
        return ask(request);
    };
}

/// Says that it has undone what it has not: the cheque of the flow "rollback", which is the only
/// one that is rolled back at once where the registration followed a balance.
Change rollbackOnlySaid()
{
    struct Memory
    {
        QByteArray before; ///< the request before the last
        QByteArray last;
        HttpMessage sale;
        QByteArray kept; ///< transaction
    };
    return [memory = std::make_shared<Memory>()](const QByteArray &request, const Ask &ask) {
        const QByteArray transaction = valueOf(request, "TransactionID");
        if (isRollback(request) && isFiscal(memory->last) && isBalance(memory->before))
            memory->kept = transaction;
        memory->before = std::exchange(memory->last, request);
        if (isRollback(request) && memory->kept == transaction)
            return memory->sale;
        const HttpMessage answer = ask(request);
        if (isFiscal(request))
            memory->sale = answer;
        return answer;
    };
}

/// A cheque that was rolled back cannot be registered anew.
Change numberNeverFree()
{
    return [last = std::make_shared<QByteArray>()](const QByteArray &request, const Ask &ask) {
        const QByteArray before = std::exchange(*last, request);
        return isRollback(before) && isFiscal(request) ? HttpMessage{refusal("83000")}
                                                       : ask(request);
    };
}

/// The first calculation is booked too, under a number of its own.
Change bookedCalculation()
{
    return [isDone = std::make_shared<bool>(false)](const QByteArray &request, const Ask &ask) {
        const HttpMessage answer = ask(request);
        if (isCalculation(request) && !*isDone) {
            *isDone = true;
            QByteArray registration = underAnotherNumber(request);
            ask(registration.replace("ChequeType=\"Soft\"", "ChequeType=\"Fiscal\""));
        }
        return answer;
    };
}

Change silentOn(const Condition &condition)
{
    return [=](const QByteArray &request, const Ask &ask) {
        return condition(request) ? HttpMessage{{}, 0} : ask(request);
    };
}

QByteArray swappedCoupons(const QByteArray &answer)
{
    const QByteArray first = valueOf(answer, "Coupon", 0);
    const QByteArray second = valueOf(answer, "Coupon", 1);
    return with(with(answer, "Coupon", second, 0), "Coupon", first, 1);
}

QByteArray withPrefix(QByteArray answer)
{
    return answer
        .replace("<ReturnCode>",
            "<l:ReturnCode xmlns:l=\"http://schemas.korvel.example/loyalty/processing\">")
        .replace("</ReturnCode>", "</l:ReturnCode>");
}

QByteArray withFigures(QByteArray answer)
{
    return answer.replace("</Message>",
        "</Message><CardNumber>1</CardNumber><CardStatus>2</CardStatus><CardType>x</CardType>"
        "<CardNormalActiveBalance>0.00</CardNormalActiveBalance><FullName>x</FullName>"
        "<Email>x</Email><AllowReceiveChequeByEmail>false</AllowReceiveChequeByEmail>");
}

QByteArray withoutCouponNumber(QByteArray answer)
{
    const QByteArray number = valueOf(valueOf(answer, "InstantCoupon"), "Number");
    return with(answer, "ChequeMessage", valueOf(answer, "ChequeMessage").replace(number, "-"));
}

QList<Wrong> ofEveryAnswer()
{
    return {
        {"PrefixedElements", {u"answer.prefix"_s}, answers(any, withPrefix)},
        {"MissingElement", {u"answer.schema"_s},
            answers(isBalance, [](const QByteArray &body) { return without(body, "CardType"); })},
        {"AnswerOfAnotherKind", {u"answer.kind"_s},
            answers(
                [](const QByteArray &request) {
                    return isSoft(request) && isOfUnknownCard(request);
                },
                [](QByteArray body) { return body.replace("ChequeResponse", "BalanceResponse"); })},
        {"FaultWithSuccess", {u"answer.kind"_s},
            answers(isCalculation, [](const QByteArray &) { return fault(); })},
        {"RefusalWithFigures", {u"answer.refusal"_s},
            answers(
                [](const QByteArray &request) {
                    return isBalance(request) && isOfUnknownCard(request);
                },
                withFigures)},
        {"RefusalWithErrorStatus", {u"answer.status"_s}, status(isOfUnknownCard, 422)},
        {"NoAnswer", {u"answer.comes"_s}, [] { return silentOn(isOfUnknownCard); }},
    };
}

QList<Wrong> ofCards()
{
    return {
        {"UnknownTestCard", {u"balance.known"_s},
            onlyThe(2, isBalance,
                answers(any,
                    [](const QByteArray &) {
                        return refusal(unheardOf).replace("ChequeResponse", "BalanceResponse");
                    }))},
        {"AnotherCard", {u"balance.card"_s},
            answers(
                [](const QByteArray &request) {
                    return isBalance(request) && !isOfUnknownCard(request);
                },
                setting("CardNumber", "2900000000024"))},
        {"BalanceThatWanders", {u"balance.steady"_s},
            onlyThe(
                3, isBalance, answers(isBalance, setting("CardNormalActiveBalance", "501.00")))},
        {"EmptyCardOtherwise", {u"card.empty"_s},
            answers(
                [](const QByteArray &request) { return valueOf(request, "CardNumber").isEmpty(); },
                replacingCode(unknownCard, unheardOf))},
        {"UnknownCardOtherwise", {u"card.unknown"_s},
            answers(isOfUnknownCard, replacingCode(unknownCard, unheardOf))},
    };
}

QList<Wrong> ofCalculations()
{
    return {
        {"CalculationRefused", {u"soft.taken"_s}, refusing(isCalculation, unheardOf)},
        {"CalculationWithTransaction", {u"soft.transaction"_s},
            answers(isSoft, setting("TransactionID", "0000000007"))},
        {"CalculationWithAnotherBalance", {u"soft.balance"_s},
            answers(isSoft, adding("CardNormalActiveBalance", 7))},
        {"CalculationIsBooked", {u"soft.nothing-booked"_s}, bookedCalculation, true},
        {"StaleSums", {u"soft.current"_s}, answers(isStale, setting("Summ", "1.00"))},
        {"SumOfAnotherCheque", {u"totals.sum"_s},
            answers(isCalculation, both(adding("Summ", 1), adding("Discount", 1)))},
        {"DiscountAsPercentage", {u"totals.discount"_s},
            answers(isCalculation, setting("Discount", "5.19"))},
        {"StatusPointsBeside", {u"totals.earned"_s},
            answers(isCalculation, adding("ChargedStatusBonus", 500))},
        {"MoreAvailableThanThereIs", {u"totals.available"_s},
            answers(isCalculation, setting("AvailablePayment", "9999.00"))},
        // An item whose position is not known has no price to be compared with either.
        {"ItemOfAnotherPosition", {u"items.each"_s, u"items.sum"_s},
            answers(isCalculation, setting("PositionNumber", "7", 2))},
        {"ItemSum", {u"items.sum"_s},
            answers(
                isCalculation, both(setting("Summ", "92.80", 1), setting("Discount", "10.97", 1)))},
        {"ItemDiscountAsAmount", {u"items.discount"_s},
            answers(isCalculation, setting("Discount", "9.18", 1))},
        {"ItemsThatDoNotAddUp", {u"items.add-up"_s},
            answers(isCalculation,
                both(setting("SummDiscounted", "73.44", 1), setting("Discount", "20.00", 1)))},
    };
}

QList<Wrong> ofPoints()
{
    return {
        {"FirstSumTakenForAWish", {u"wish.first"_s},
            requests(isCalculation, setting("PaidByBonus", "10.00"))},
        {"RepeatedFiguresNotHeard", {u"wish.repeated"_s},
            requests(repeatsFigures, setting("Discount", "0.00"))},
        {"WishHeardAfterABalance", {u"wish.over"_s},
            onlyThe(2, repeatsFigures, requests(any, adding("PaidByBonus", -0.01)))},
        {"FewerPointsThanAskedFor", {u"points.spent"_s},
            requests(asksForOne, setting("PaidByBonus", "0.50"))},
        {"PointsOfItems", {u"points.items"_s}, answers(asksForOne, adding("WriteoffBonus", 1, 1))},
        {"PointsTakenOffTheSum", {u"points.sum"_s},
            answers(asksForOne, adding("SummDiscounted", -1))},
        {"TooManyPointsIsSuccess", {u"points.too-many"_s},
            answers(asksForTooMany, replacingCode(notEnough, "0"))},
        {"TooManyPointsWithoutFigures", {u"points.figures"_s}, refusing(asksForTooMany, notEnough)},
        {"TooManyPointsSpends", {u"points.none-spent"_s},
            answers(asksForTooMany, setting("WriteoffBonus", "5.00"))},
        {"UnknownCouponNotApplicable", {u"coupons.unknown"_s},
            answers(isSoft,
                [](QByteArray body) {
                    return body.replace("<ApplicabilityCode>0<", "<ApplicabilityCode>2<");
                })},
        {"CouponNotApplicable", {u"coupons.applicable"_s},
            answers(isSoft,
                [](QByteArray body) {
                    return body.replace("<ApplicabilityCode>1<", "<ApplicabilityCode>2<");
                })},
        {"CouponsInAnotherOrder", {u"coupons.answered"_s}, answers(hasTwoCoupons, swappedCoupons)},
    };
}

QList<Wrong> ofMalformedMessages()
{
    const Condition isNoXml = [](const QByteArray &request) { return !request.contains('<'); };
    const Condition hasNoNumber = [](const QByteArray &request) {
        return isBalance(request) && !request.contains("CardNumber");
    };
    const Condition hasPositionTwice = [](const QByteArray &request) {
        return positions(request) == 2 && valueOf(request, "PositionNumber", 1) == "1";
    };
    const Condition hasDoctype
        = [](const QByteArray &request) { return request.contains("<!DOCTYPE"); };
    return {
        {"NoXmlOtherwise", {u"malformed.xml"_s}, status(isNoXml, 400)},
        {"UnfitOtherwise", {u"malformed.schema"_s}, status(hasNoNumber, 400)},
        {"PositionTwiceOtherwise", {u"malformed.positions"_s}, status(hasPositionTwice, 400)},
        {"DoctypeOtherwise", {u"malformed.doctype"_s}, status(hasDoctype, 400)},
        {"FaultAsPage", {u"malformed.fault"_s},
            answers(isNoXml, [](const QByteArray &) { return QByteArray("<html/>"); })},
    };
}

QList<Wrong> ofRegistrations()
{
    return {
        {"RegistrationRefused", {u"fiscal.taken"_s}, refusing(isRegistration, unheardOf)},
        {"RegistrationWithoutTransaction", {u"fiscal.transaction"_s},
            answers(isRegistration, setting("TransactionID", {}))},
        {"ProcessedLongAgo", {u"fiscal.processed"_s},
            answers(isRegistration, setting("Processed", "2001-02-03T04:05:06"))},
        {"PointsThatNobodyGets", {u"fiscal.moved"_s},
            answers(isRegistration, adding("ActiveChargedBonus", 5))},
        {"BalanceBeforeTheRegistration", {u"fiscal.told"_s},
            answers(isRegistration, setting("CardNormalActiveBalance", "500.00"))},
        {"MessageForOneOnly", {u"fiscal.messages"_s},
            answers(isRegistration,
                [](const QByteArray &body) { return without(body, "CashierMessage"); })},
        {"CouponTextWithoutNumber", {u"fiscal.coupon-text"_s},
            answers(isRegistration, withoutCouponNumber)},
        {"RepeatRefused", {u"repeat.answer"_s}, repeats(isFiscal, true, refusedRepeat)},
        {"RepeatBooked", {u"repeat.once"_s}, repeats(isFiscal, true, bookedTwice), true},
        {"RepeatTakenForAnother", {u"repeat.answer"_s, u"repeat.once"_s},
            repeats(isFiscal, true, takenAsAnother)},
        {"OtherPositionsTaken", {u"repeat.other"_s}, repeats(isFiscal, false, takenAsAnother)},
        {"NumberNeverFree", {u"repeat.forgotten"_s}, numberNeverFree},
    };
}

QList<Wrong> ofCodes()
{
    const Condition isUnconfirmed = [](const QByteArray &request) {
        return isFiscal(request) && !request.contains("WriteOffConfirm")
            && valueOf(request, "PaidByBonus") == "10.00";
    };
    const Condition isQueued = [=](const QByteArray &request) {
        return isUnconfirmed(request) && positions(request) == 1;
    };
    const Condition isSpend = [=](const QByteArray &request) {
        return isUnconfirmed(request) && positions(request) == 2;
    };
    return {
        {"FewerPointsBooked", {u"points.booked"_s},
            requests(isSpend, setting("PaidByBonus", "5.00"))},
        {"NoCodeIssued", {u"code.issued"_s, u"code.told"_s},
            answers(asksForCode,
                [](const QByteArray &body) { return without(body, "VerificationCode"); })},
        {"AnotherCodeTold", {u"code.told"_s},
            answers(asksForCode, setting("VerificationCode", "1111"))},
        {"AnyCodeTaken", {u"code.wrong"_s},
            requests(isFiscal, setting("VerificationCode", "4829"))},
        {"NoCodeTaken", {u"code.right"_s},
            requests(
                [](const QByteArray &request) {
                    return valueOf(request, "VerificationCode") == "4829";
                },
                setting("VerificationCode", "0000"))},
        {"QueuedWithoutCodeRefused", {u"code.queued"_s}, refusing(isQueued, "81330")},
    };
}

QList<Wrong> ofReturns()
{
    const Condition isPart = isReturnOfOne;
    const Condition hasNoDay = [](const QByteArray &request) {
        return isReturn(request)
            && valueOf(valueOf(request, "ChequeReference"), "DateTime").isEmpty();
    };
    const Condition isRefusedRollback
        = [](const QByteArray &request) { return isRollback(request); };
    // The part and its repeat come before the rest.
    const auto half
        = [](const QByteArray &quantity) { return requests(any, setting("Quantity", quantity)); };
    return {
        {"ReturnRefused", {u"return.taken"_s}, refusing(isPart, unheardOf)},
        {"ReturnWithoutTransaction", {u"return.transaction"_s},
            answers(isPart, setting("TransactionID", {}))},
        {"PartOutOfProportion", {u"return.proportion"_s},
            [=]() -> Change {
                return [=, seen = std::make_shared<int>(0)](
                           const QByteArray &request, const Ask &ask) {
                    if (!isPart(request) || ++*seen > 3)
                        return ask(request);
                    return ask(with(request, "Quantity", *seen < 3 ? "0.500" : "1.500"));
                };
            }},
        {"ReturnThatMovesOtherwise", {u"return.moved"_s},
            answers(isPart, adding("WriteoffBonus", -0.01))},
        {"PartsThatAreNotTheWhole", {u"return.whole"_s}, onlyThe(3, isPart, half("0.500"))},
        {"ReturnRepeatRefused", {u"return.repeat"_s}, repeats(isPart, true, refusedRepeat)},
        {"RollbackOfReturnedOtherwise", {u"return.rollback"_s},
            answers(isKnownRollback, replacingCode(notThere, unheardOf))},
        {"TooMuchReturnedOtherwise", {u"return.too-much"_s},
            onlyThe(4, isPart, answers(any, replacingCode(notThere, unheardOf)))},
        {"UnknownSaleReturnedOtherwise", {u"return.unknown"_s},
            answers(hasNoDay, replacingCode(notThere, unheardOf))},
    };
}

QList<Wrong> ofRollbacks()
{
    return {
        // What was sold is then taken back by returns.
        {"NoRollback", {u"rollback.taken"_s}, refusing(isRollback, notThere)},
        {"RollbackOnlySaid", {u"rollback.balance"_s}, rollbackOnlySaid, true},
        {"RollbackWithAnotherBalance", {u"rollback.told"_s},
            answers(isRollback, adding("CardNormalActiveBalance", 1))},
        {"RollbackOnce", {u"rollback.again"_s}, rollbackOnce},
        {"UnknownRollbackOtherwise", {u"rollback.unknown"_s},
            answers(isUnknownRollback, replacingCode(notThere, unheardOf))},
    };
}

} // namespace

void PrintTo(const Wrong &wrong, std::ostream *out)
{
    *out << wrong.name;
}

const QList<Wrong> &wrongs()
{
    static const QList<Wrong> all = ofEveryAnswer() + ofCards() + ofCalculations() + ofPoints()
        + ofMalformedMessages() + ofRegistrations() + ofCodes() + ofReturns() + ofRollbacks();
    return all;
}

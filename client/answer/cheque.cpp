#include "client/answer/answerindex.h"
#include "client/couponmessage.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/names.h"

#include <array>

namespace korvelLoyaltyOnline {

namespace {

using Values = QMap<QString, QVariant>;
using Span = AnswerIndex::Span;

/// Applicability of a coupon that the cheque may use.
constexpr int applicable = 1;

/// The same bonus names are texts here and numbers inside the positions: whoever reads the map
/// relies on either.
void readFigures(const AnswerIndex &answer, Values &result)
{
    using namespace korvel;
    const auto text = [&](const QString &name, Field field) {
        result.insert(name, answer.text(field, answer.whole()));
    };
    const auto number = [&](const QString &name, Field field) {
        result.insert(name, answer.number(field, answer.whole()));
    };
    text(result::availablePayment, Field::AvailablePayment);
    text(result::cardNormalActiveBalance, Field::CardNormalActiveBalance);
    text(result::chargedStatusBonus, Field::ChargedStatusBonus);
    text(result::activeChargedBonus, Field::ActiveChargedBonus);
    text(result::transactionId, Field::TransactionId);
    text(result::processed, Field::Processed);
    text(result::verificationCode, Field::VerificationCode);
    text(result::cashierMessage, Field::CashierMessage);
    number(result::writeoffBonus, Field::WriteoffBonus);
    number(result::summ, Field::Summ);
    number(result::discount, Field::Discount);
    number(result::summDiscounted, Field::SummDiscounted);
}

struct Figure
{
    QString name;
    Field field;
};

/// Figures of a position, in the order of a map's keys.
const std::array positionFigures = {
    Figure{korvel::result::activeChargedBonus, Field::ActiveChargedBonus},
    Figure{korvel::result::chargedStatusBonus, Field::ChargedStatusBonus},
    Figure{korvel::result::discount, Field::Discount},
    Figure{korvel::result::summ, Field::Summ},
    Figure{korvel::result::summDiscounted, Field::SummDiscounted},
    Figure{korvel::result::writeoffBonus, Field::WriteoffBonus},
};

Values noFigures()
{
    Values figures;
    for (const Figure &figure : positionFigures)
        figures.insert(figure.name, 0.0);
    return figures;
}

Values readPosition(const AnswerIndex &answer, Span item)
{
    // A map that is copied compares none of its keys, which is most of what building one takes.
    static const Values none = noFigures();
    Values position = none;
    auto value = position.begin();
    for (const Figure &figure : positionFigures)
        (value++)->setValue(answer.number(figure.field, item));
    return position;
}

void insertUnlessEmpty(const QString &name, const Values &attributes, Values &result)
{
    if (!attributes.isEmpty())
        result.insert(name, attributes);
}

/// Numbers of the coupons that the service accepts, or their emissions where it names no number.
QStringList applicableCoupons(const AnswerIndex &answer)
{
    QStringList numbers;
    for (const Span coupon : answer.insidesOf(Field::Coupon, answer.whole())) {
        if (answer.text(Field::ApplicabilityCode, coupon).toInt() != applicable)
            continue;
        const QString number = answer.text(Field::Number, coupon);
        numbers.append(number.isEmpty() ? answer.text(Field::EmissionId, coupon) : number);
    }
    return numbers;
}

/// Numbers of the coupons that came with this cheque.
QStringList instantCoupons(const AnswerIndex &answer)
{
    QStringList numbers;
    for (const Span coupon : answer.insidesOf(Field::InstantCoupon, answer.whole()))
        numbers.append(answer.text(Field::Number, coupon));
    return numbers;
}

} // namespace

void Interface::fillRequestResult(
    const QDomDocument &response, QMap<QString, QVariant> &result) const
{
    using namespace korvel;
    const AnswerIndex answer(response);
    readFigures(answer, result);
    insertUnlessEmpty(
        result::extendedAttributes, readAttributes(answer.chequeAttributes()), result);
    const QString message = answer.text(Field::ChequeMessage, answer.whole());
    result.insert(result::chequeMessage, textBeforeCoupons(message, m_couponMessageDelimeter));
    const QList<QVariant> coupons = couponsToPrint(message, instantCoupons(answer));
    if (!coupons.isEmpty())
        result.insert(result::couponsToPrint, coupons);
    result.insert(result::positions, readPositions(answer));
    result.insert(result::applicableCoupons, applicableCoupons(answer));
}

QMap<QString, QVariant> Interface::readPositions(const AnswerIndex &answer) const
{
    Values positions;
    for (const Span item : answer.insidesOf(Field::Item, answer.whole())) {
        Values position = readPosition(answer, item);
        insertUnlessEmpty(
            korvel::result::extendedAttributes, readAttributes(answer.attributes(item)), position);
        positions.insert(answer.text(Field::PositionNumber, item), position);
    }
    return positions;
}

} // namespace korvelLoyaltyOnline

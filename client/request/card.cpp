#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using xmlutils::createTextElement;

namespace {

QString flagText(bool flag)
{
    return QString::number(flag ? 1 : 0);
}

} // namespace

QDomElement Interface::formCard(
    const QSharedPointer<DocumentCardRecord> &card, QDomDocument &request) const
{
    QDomElement element = request.createElement(wire::card);
    element.appendChild(createTextElement(request, wire::cardNumber, card->getNumber().toString()));
    return element;
}

QDomElement Interface::formWriteOffConfirm(
    const QSharedPointer<korvel::ConfirmationInfo> &confirmation, QDomDocument &request) const
{
    if (!confirmation)
        return {};
    QDomElement element = request.createElement(wire::writeOffConfirm);
    element.appendChild(
        createTextElement(request, wire::confirm, flagText(confirmation->isConfirm())));
    element.appendChild(
        createTextElement(request, wire::sendCode, flagText(confirmation->isSendCode())));
    element.appendChild(createTextElement(
        request, korvel::result::verificationCode, confirmation->getVerificationCode()));
    return element;
}

QDomElement Interface::formCoupons(
    const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const
{
    if (!document->hasCoupons())
        return {};
    QDomElement element = request.createElement(wire::coupons);
    const auto coupons = document->getCoupons();
    for (const auto &coupon : coupons) {
        QDomElement child = request.createElement(wire::coupon);
        child.appendChild(createTextElement(request, wire::number, coupon->getNumber()));
        element.appendChild(child);
    }
    return element;
}

} // namespace korvelLoyaltyOnline

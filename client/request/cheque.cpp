#include "client/amounts.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;
using xmlutils::createTextElement;

namespace {

using StoredFigures = QMap<QString, QVariant>;

QDomElement chequeElement(const QString &chequeType, QDomDocument &request)
{
    QDomElement payload = request.createElement(wire::chequeRequest);
    payload.setAttribute(wire::chequeType, chequeType);
    return payload;
}

QDomElement amountElement(QDomDocument &request, const QString &tag, double amount)
{
    return createTextElement(request, tag, amountText(amount));
}

/// Figures that the service gave for this cheque before; empty before its first answer.
StoredFigures storedChequeData(const AbstractDocument &document)
{
    return document.getStoredValue(korvel::group, korvel::plugindata::chequeData, {}).toMap();
}

void appendSaleAmounts(QDomElement &payload, const AbstractDocument &document,
    const StoredFigures &stored, QDomDocument &request)
{
    const auto append = [&](const QString &name, double fallback) {
        const double amount = stored.contains(name) ? stored.value(name).toDouble() : fallback;
        payload.appendChild(amountElement(request, name, amount));
    };
    append(korvel::result::summ, document.getSumBeforeDiscounts());
    append(korvel::result::discount, 0.0);
    append(korvel::result::summDiscounted, document.getSumAfterDiscounts());
    // Deliberately not 0: until the service has answered, all of it may be paid with points.
    append(korvel::result::paidByBonus, document.getSumAfterDiscounts());
}

} // namespace

QDomDocument Interface::formSaleChequeRequest(const QSharedPointer<AbstractDocument> &document,
    const QString &chequeType, const QSharedPointer<korvel::ConfirmationInfo> &confirmation) const
{
    QDomDocument request;
    QDomElement payload = chequeElement(chequeType, request);
    payload.appendChild(formCard(document->getCardRecord(ECardMode::OnlineLoyalty), request));
    payload.appendChild(createTextElement(request, wire::operationType, u"Sale"_s));
    payload.appendChild(createTextElement(request, wire::number, document->getNumber()));
    const StoredFigures stored = storedChequeData(*document);
    appendSaleAmounts(payload, *document, stored, request);
    xmlutils::appendNotNull(payload, formWriteOffConfirm(confirmation, request));
    const auto attributes = formExtendedAttributes(stored, request, {});
    for (const QDomElement &attribute : attributes)
        payload.appendChild(attribute);
    xmlutils::appendNotNull(payload, formCoupons(document, request));
    const auto items = formItems(document, request);
    for (const QDomElement &item : items)
        payload.appendChild(item);
    formXmlRequest(payload, request);
    return request;
}

void Interface::formReturnChequeRequest(
    const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const
{
    const double sumBefore = document->getSumBeforeDiscounts();
    const double sumAfter = document->getSumAfterDiscounts();
    QDomElement payload = chequeElement(korvel::chequetype::fiscal, request);
    payload.appendChild(formCard(document->getCardRecord(ECardMode::OnlineLoyalty), request));
    payload.appendChild(createTextElement(request, wire::operationType, u"Return"_s));
    payload.appendChild(createTextElement(request, wire::number, document->getNumber()));
    payload.appendChild(amountElement(request, korvel::result::summ, sumBefore));
    payload.appendChild(amountElement(request, korvel::result::summDiscounted, sumAfter));
    // Per cent, and behind the sum: a sale sends an amount, before it.
    payload.appendChild(
        amountElement(request, korvel::result::discount, calculateDiscount(sumBefore, sumAfter)));
    QDomElement reference;
    formChequeReference(document, reference, request);
    payload.appendChild(reference);
    const auto items = formItems(document, request);
    for (const QDomElement &item : items)
        payload.appendChild(item);
    formXmlRequest(payload, request);
}

} // namespace korvelLoyaltyOnline

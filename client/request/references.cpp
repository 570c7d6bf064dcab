#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using xmlutils::createTextElement;

void Interface::formTransactionReference(const QSharedPointer<DocumentCardRecord> &card,
    QDomElement &reference, QDomDocument &request) const
{
    reference = request.createElement(wire::transactionReference);
    reference.appendChild(
        createTextElement(request, korvel::result::transactionId, card->getOperationId()));
}

void Interface::formChequeReference(const QSharedPointer<AbstractDocument> &document,
    QDomElement &reference, QDomDocument &request) const
{
    const auto card = document->getCardRecord(ECardMode::OnlineLoyalty);
    const QString date
        = card->getOperationInfo().toMap().value(korvel::operationinfo::transactionDate).toString();
    reference = request.createElement(wire::chequeReference);
    reference.appendChild(
        createTextElement(request, wire::number, document->getReferencedNumber()));
    reference.appendChild(createTextElement(request, wire::dateTime, date));
    reference.appendChild(createTextElement(request, wire::pos, formDataByMask(m_pos)));
    // As in every request: the organization is no mask.
    reference.appendChild(createTextElement(request, wire::organization, m_organization));
    reference.appendChild(
        createTextElement(request, wire::businessUnit, formDataByMask(m_businessUnit)));
}

} // namespace korvelLoyaltyOnline

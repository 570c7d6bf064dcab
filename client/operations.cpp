#include "client/interface.h"
#include "client/names.h"
#include "client/returncode.h"
#include "common/host/services.h"
#include "common/names.h"
#include <log4qt/logger.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

void Interface::balanceRequest(const QSharedPointer<DocumentCardRecord> &card) const
{
    m_logger->info(u"Получение баланса карты"_s);
    QDomDocument request;
    QDomElement payload = request.createElement(wire::balanceRequest);
    payload.appendChild(formCard(card, request));
    formXmlRequest(payload, request);
    const QDomDocument response = sendRequest(request, m_timeout);
    checkResponse(response);
    checkCardStatus(response);
    const QString balance
        = xmlutils::getValueByTag(response, korvel::result::cardNormalActiveBalance, 0);
    card->setBonusBalance(balance.toDouble());
    fillClient(response, card);
}

bool Interface::saleChequeRequest(const QSharedPointer<AbstractDocument> &document,
    const QString &chequeType, const QSharedPointer<korvel::ConfirmationInfo> &confirmation,
    QMap<QString, QVariant> &result) const
{
    const QDomDocument request = formSaleChequeRequest(document, chequeType, confirmation);
    const QDomDocument response = sendRequest(request, m_timeout);
    const ReturnCode returned = readReturnCode(response);
    const bool isInsufficient = returned.code == insufficientPointsCode;
    // Not `checkResponse`: too few points are an answer here, and an answer without a readable code
    // is worth a line in the log though it passes.
    if (!returned.isSuccess() && !isInsufficient) {
        const QString message = xmlutils::getValueByTag(response, wire::message, 0);
        m_logger->error(u"Ошибка при покупке %1"_s.arg(message));
        throwError(returned.code, tr::Tr(tr::undefined, message));
    }
    fillRequestResult(response, result);
    return isInsufficient;
}

void Interface::rollbackChequeRequest(
    const QSharedPointer<AbstractDocument> &document, QMap<QString, QVariant> &result) const
{
    QDomDocument request;
    QDomElement payload = request.createElement(wire::chequeRequest);
    payload.setAttribute(wire::chequeType, korvel::chequetype::fiscal);
    payload.appendChild(xmlutils::createTextElement(request, wire::operationType, u"Rollback"_s));
    const auto card = document->getCardRecord(ECardMode::OnlineLoyalty);
    payload.appendChild(formCard(card, request));
    QDomElement reference;
    formTransactionReference(card, reference, request);
    payload.appendChild(reference);
    formXmlRequest(payload, request);
    const QDomDocument response = sendRequest(request, m_timeout);
    checkResponse(response);
    const QString &balance = korvel::result::cardNormalActiveBalance;
    result.insert(balance, xmlutils::getValueByTag(response, balance, 0));
}

void Interface::returnChequeRequest(const QSharedPointer<AbstractDocument> &document) const
{
    QDomDocument request;
    formReturnChequeRequest(document, request);
    checkResponse(sendRequest(request, m_timeoutReturn));
}

void Interface::saleChequeRequestOffline(const QSharedPointer<AbstractDocument> &document) const
{
    sendRequestOffline(formSaleChequeRequest(document, korvel::chequetype::fiscal, {}));
}

void Interface::returnChequeRequestOffline(const QSharedPointer<AbstractDocument> &document) const
{
    QDomDocument request;
    formReturnChequeRequest(document, request);
    sendRequestOffline(request);
}

double Interface::getMinRetailPriceForMarkdownPositions() const
{
    return m_minRetailPriceForMarkdownPositions;
}

} // namespace korvelLoyaltyOnline

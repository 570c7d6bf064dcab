#include "client/answer/answerindex.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/exceptions.h"
#include "common/host/services.h"
#include "common/names.h"
#include <log4qt/logger.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString flagIsSet = u"1"_s;
const QString emailIsAllowed = u"true"_s;

/// What a cashier reads about a forbidden status: of its own where the service has given the status
/// a meaning, otherwise with the number. Each status has an id of its own.
tr::Tr forbiddenStatus(int status)
{
    switch (status) {
    case 3:
        return {u"korvelForbiddenCardStatus3"_s, u"Карта заблокирована"_s};
    case 5:
        return {u"korvelForbiddenCardStatus5"_s, u"Завершена"_s};
    case 6:
        return {u"korvelForbiddenCardStatus6"_s, u"Карта удалена"_s};
    case 9:
        return {u"korvelForbiddenCardStatus9"_s, u"Незарегистрированная карта"_s};
    default:
        return {u"korvelForbiddenCardStatus%1"_s.arg(status),
            u"Запрещенный статус карты '%1'"_s.arg(status)};
    }
}

/// The keys of the element's pairs that are configured and set. Children are taken two by two: a
/// pair in the wrong order, or put out of step by what stands between, says nothing.
QStringList flagsOf(const QDomElement &attribute, const QStringList &configured)
{
    QStringList flags;
    QDomNode next = attribute.firstChild();
    while (!next.isNull() && !next.nextSibling().isNull()) {
        const QDomElement key = next.toElement();
        const QDomElement value = next.nextSibling().toElement();
        next = next.nextSibling().nextSibling();
        if (key.tagName() == wire::key && value.tagName() == wire::value
            && configured.contains(key.text()) && value.text() == flagIsSet)
            flags.append(key.text());
    }
    return flags;
}

/// The holder's e-mail, and with it whether cheques may go there.
void fillEmail(const QDomDocument &response, Client &client)
{
    const QString email = xmlutils::getValueByTag(response, wire::email, 0);
    if (email.isEmpty())
        return;
    client.setEmail(email);
    if (xmlutils::getValueByTag(response, wire::allowReceiveChequeByEmail, 0) != emailIsAllowed)
        return;
    client.setOption(ClientOptions::ChequeByEmail);
    client.setOption(ClientOptions::ElectronicCheque);
}

/// @param isForCustomer whether the customer is to know.
KorvelException refusalOf(int status, bool isForCustomer)
{
    KorvelException refusal(forbiddenStatus(status));
    refusal.setFlag(isForCustomer);
    return refusal;
}

} // namespace

void Interface::checkCardStatus(const QDomDocument &response) const
{
    const int status = xmlutils::getValueByTag(response, wire::cardStatus, 0).toInt();
    const auto forbidden = m_forbiddenCardStatuses.constFind(status);
    if (forbidden == m_forbiddenCardStatuses.cend())
        return;
    m_logger->error(u"Запрещенный статус карты: %1"_s.arg(status));
    throw refusalOf(status, *forbidden);
}

QString Interface::getCardType(const QDomDocument &response) const
{
    // The first item stays even when empty: the leading separator shows that the type is missing.
    QStringList items = {xmlutils::getValueByTag(response, wire::cardType, 0)};
    const AnswerIndex answer(response);
    const auto attributes = answer.attributes(answer.whole());
    if (!attributes.empty()) {
        const QStringList configured = Singleton<Config>::instance()->getStringList(
            korvel::group % u":cardTypeExtendedAttribute", {});
        for (const QDomElement &attribute : attributes)
            items.append(flagsOf(attribute, configured));
    }
    return items.join(u", "_s);
}

void Interface::fillClient(
    const QDomDocument &response, const QSharedPointer<DocumentCardRecord> &card) const
{
    const QString fullName = xmlutils::getValueByTag(response, wire::fullName, 0);
    const QString cardType = getCardType(response);
    if (fullName.isEmpty() && cardType.isEmpty())
        return;
    const auto client = QSharedPointer<Client>::create();
    // Deliberately the card type: the cashier sees it where the host shows the client's name, and
    // the holder's own name is kept nowhere.
    client->setName(cardType);
    fillEmail(response, *client);
    card->getCard()->setClient(client);
}

} // namespace korvelLoyaltyOnline

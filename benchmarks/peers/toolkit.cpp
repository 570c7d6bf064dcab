#include "benchmarks/peers/peers.h"
#include "benchmarks/peers/values.h"

#include "common/names.h"

// Generated from the service's description when this is built.
#include "soapH.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace peers {

namespace {

/// Bytes that are read, or those that were written.
struct Bytes
{
    QByteArrayView unread;
    QByteArray written;
};

std::size_t receive(soap *context, char *buffer, std::size_t size)
{
    auto *bytes = static_cast<Bytes *>(context->user);
    const auto count = std::min(static_cast<qsizetype>(size), bytes->unread.size());
    std::memcpy(buffer, bytes->unread.data(), static_cast<std::size_t>(count));
    bytes->unread = bytes->unread.sliced(count);
    return static_cast<std::size_t>(count);
}

int send(soap *context, const char *data, std::size_t size)
{
    static_cast<Bytes *>(context->user)->written.append(data, static_cast<qsizetype>(size));
    return SOAP_OK;
}

/// The toolkit's state for one message after the other; what it made for a message goes with the
/// turn.
class Turn
{
public:
    Turn()
    {
        context()->user = &m_bytes;
        context()->frecv = receive;
        context()->fsend = send;
    }
    ~Turn()
    {
        soap_destroy(context());
        soap_end(context());
    }
    Q_DISABLE_COPY_MOVE(Turn)

    static soap *context()
    {
        // Plain: no HTTP headers around the message.
        static const auto shared = std::unique_ptr<soap, void (*)(soap *)>(
            soap_new1(SOAP_C_UTFSTRING | SOAP_ENC_PLAIN | SOAP_XML_INDENT), soap_free);
        return shared.get();
    }
    Bytes &bytes() { return m_bytes; }

private:
    Bytes m_bytes;
};

void check(bool failed)
{
    if (failed)
        throw std::runtime_error("the toolkit cannot read or write the message");
}

Values positionsOf(const std::vector<loyalty__AnswerItem *> &items)
{
    using namespace korvel;
    Values positions;
    for (const loyalty__AnswerItem *item : items)
        positions.insert(QString::number(item->PositionNumber),
            Values{{result::summ, numberOf(item->Summ)},
                {result::discount, numberOf(item->Discount)},
                {result::summDiscounted, numberOf(item->SummDiscounted)},
                {result::activeChargedBonus, numberOf(item->ActiveChargedBonus)},
                {result::chargedStatusBonus, numberOf(item->ChargedStatusBonus)},
                {result::writeoffBonus, numberOf(item->WriteoffBonus)}});
    return positions;
}

QString textOf(const std::string *text)
{
    return text ? peers::textOf(*text) : QString();
}

Values mapOf(const __loyalty__ChequeResponse_sequence &cheque)
{
    using namespace korvel;
    Values result = {{result::availablePayment, peers::textOf(cheque.AvailablePayment)},
        {result::cardNormalActiveBalance, peers::textOf(cheque.CardNormalActiveBalance)},
        {result::chargedStatusBonus, peers::textOf(cheque.ChargedStatusBonus)},
        {result::activeChargedBonus, peers::textOf(cheque.ActiveChargedBonus)},
        {result::transactionId, peers::textOf(cheque.TransactionID)},
        {result::processed, peers::textOf(cheque.Processed)},
        {result::verificationCode, textOf(cheque.VerificationCode)},
        {result::cashierMessage, textOf(cheque.CashierMessage)},
        {result::writeoffBonus, numberOf(cheque.WriteoffBonus)},
        {result::summ, numberOf(cheque.Summ)}, {result::discount, numberOf(cheque.Discount)},
        {result::summDiscounted, numberOf(cheque.SummDiscounted)}};
    QStringList instant;
    for (const auto &coupon : cheque.InstantCoupons->InstantCoupon)
        instant.append(peers::textOf(coupon.Number));
    insertCoupons(textOf(cheque.ChequeMessage), instant, result);
    QStringList applicable;
    for (const auto &coupon : cheque.Coupons->Coupon)
        if (coupon.ApplicabilityCode == 1)
            applicable.append(peers::textOf(coupon.Number));
    result.insert(result::applicableCoupons, applicable);
    result.insert(result::positions, positionsOf(cheque.Item));
    return result;
}

loyalty__RequestItem *itemOf(soap *context, const GoodsItem &position)
{
    loyalty__RequestItem *item = soap_new_loyalty__RequestItem(context);
    item->PositionNumber = position.getPosnum();
    item->Article = position.getCode().toStdString();
    item->Price = fixed(position.getPrice());
    item->Quantity = fixed(position.getBquant(), 3);
    item->Summ = fixed(position.getSumn());
    item->Discount = "0.00";
    item->SummDiscounted = fixed(position.getSumb());
    item->Mcp = "0.00";
    return item;
}

loyalty__ChequeRequest *payloadOf(soap *context, const AbstractDocument &document)
{
    const auto text = [context](const std::string &content) {
        std::string *made = soap_new_std__string(context);
        *made = content;
        return made;
    };
    loyalty__ChequeRequest *payload = soap_new_loyalty__ChequeRequest(context);
    payload->ChequeType = loyalty__ChequeType__Soft;
    payload->Card = soap_new_loyalty__Card(context);
    payload->Card->CardNumber
        = document.getCardRecord(ECardMode::OnlineLoyalty)->getNumber().toString().toStdString();
    payload->OperationType = soap_new_loyalty__OperationType(context);
    *payload->OperationType = loyalty__OperationType__Sale;
    payload->Number = text(document.getNumber().toStdString());
    payload->Summ = text(fixed(document.getSumBeforeDiscounts()));
    payload->Discount = text("0.00");
    payload->SummDiscounted = text(fixed(document.getSumAfterDiscounts()));
    payload->PaidByBonus = text(*payload->SummDiscounted);
    for (const auto &position : document.getGoods())
        payload->Item.push_back(itemOf(context, *position));
    payload->DateTime = "2024-03-05T17:04:09";
    return payload;
}

} // namespace

QMap<QString, QVariant> readByToolkit(const QByteArray &answer)
{
    Turn turn;
    turn.bytes().unread = answer;
    soap *context = Turn::context();
    _loyalty__ProcessRequestResponse response;
    response.soap_default(context);
    check(soap_begin_recv(context) || soap_envelope_begin_in(context) || soap_recv_header(context)
        || soap_body_begin_in(context)
        || !response.soap_get(context, "loyalty:ProcessRequestResponse", nullptr)
        || soap_body_end_in(context) || soap_envelope_end_in(context) || soap_end_recv(context));
    return mapOf(*response.ProcessRequestResult.union_ProcessRequestResponse_ProcessRequestResult
                      .ChequeResponse->__ChequeResponse_sequence);
}

QByteArray composeByToolkit(const AbstractDocument &document)
{
    Turn turn;
    soap *context = Turn::context();
    _loyalty__ProcessRequest request;
    request.soap_default(context);
    request.request.__union_ProcessRequest_request
        = SOAP_UNION__loyalty__union_ProcessRequest_request_ChequeRequest;
    request.request.union_ProcessRequest_request.ChequeRequest = payloadOf(context, document);
    soap_serializeheader(context);
    request.soap_serialize(context);
    check(soap_begin_send(context) || soap_envelope_begin_out(context) || soap_putheader(context)
        || soap_body_begin_out(context)
        || request.soap_put(context, "loyalty:ProcessRequest", nullptr)
        || soap_body_end_out(context) || soap_envelope_end_out(context) || soap_end_send(context));
    return turn.bytes().written;
}

} // namespace peers

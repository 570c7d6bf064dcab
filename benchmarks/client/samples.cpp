#include "benchmarks/client/samples.h"

#include "common/host/framework.h"

namespace samples {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int coupons = 3;
constexpr int differentPrices = 1000;

QByteArray line(const QByteArray &name, const QByteArray &text)
{
    return "      <" + name + '>' + text + "</" + name + ">\n";
}

QByteArray amount(double value)
{
    return QByteArray::number(value, 'f', 2);
}

double priceOf(int number)
{
    return 0.9 + number % differentPrices;
}

QByteArray sums(double sum)
{
    return line("Summ", amount(sum)) + line("Discount", "10.00")
        + line("SummDiscounted", amount(0.9 * sum));
}

QByteArray chequeFigures(double sum)
{
    return line("TransactionID", "0000000001") + line("Processed", "2024-03-05T17:04:10")
        + sums(sum) + line("AvailablePayment", "371.03") + line("CardNormalActiveBalance", "432.11")
        + line("ChargedStatusBonus", "6.42") + line("ActiveChargedBonus", "38.53")
        + line("WriteoffBonus", "0.00");
}

QByteArray couponNumber(int number)
{
    return QByteArray::number(9'901'000'000'000 + number);
}

QByteArray messages()
{
    QByteArray message = "Спасибо за покупку!";
    for (int number = 1; number <= coupons; ++number)
        message += "––Купон " + couponNumber(number) + ": скидка на следующую покупку";
    return line("CashierMessage", "Начислено баллов: 32.11") + line("ChequeMessage", message);
}

QByteArray couponElements()
{
    QByteArray used;
    QByteArray given;
    for (int number = 1; number <= coupons; ++number) {
        used += "      <Coupon>\n" + line("Number", "99" + QByteArray::number(number))
            + line("EmissionID", "SPRING") + line("ApplicabilityCode", "1") + "      </Coupon>\n";
        given += "      <InstantCoupon>\n" + line("Number", couponNumber(number))
            + "      </InstantCoupon>\n";
    }
    return "     <Coupons>\n" + used + "     </Coupons>\n     <InstantCoupons>\n" + given
        + "     </InstantCoupons>\n";
}

QByteArray item(int number)
{
    const double sum = priceOf(number);
    return "     <Item>\n" + line("PositionNumber", QByteArray::number(number)) + sums(sum)
        + line("ActiveChargedBonus", amount(0.05 * sum))
        + line("ChargedStatusBonus", amount(0.01 * sum)) + line("WriteoffBonus", "0.00")
        + "     </Item>\n";
}

} // namespace

QByteArray answerOf(int positions)
{
    QByteArray answer = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                        "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\">\n"
                        " <soap:Body>\n  <ProcessRequestResponse "
                        "xmlns=\"http://schemas.korvel.example/loyalty/processing\">\n"
                        "   <ProcessRequestResult>\n    <ChequeResponse>\n";
    answer += line("ReturnCode", "0") + line("Message", "") + chequeFigures(priceOf(positions))
        + messages() + couponElements();
    for (int number = 1; number <= positions; ++number)
        answer += item(number);
    return answer
        + "    </ChequeResponse>\n   </ProcessRequestResult>\n  </ProcessRequestResponse>\n"
          " </soap:Body>\n</soap:Envelope>\n";
}

QSharedPointer<AbstractDocument> chequeOf(int positions)
{
    const auto group = QSharedPointer<CardGroup>::create();
    group->setCardMode(ECardMode::OnlineLoyalty);
    const auto card = QSharedPointer<Card>::create();
    card->setCardGroup(group);
    auto document = QSharedPointer<AbstractDocument>::create(EDocumentType::Sale, u"17"_s);
    document->addCardRecord(QSharedPointer<DocumentCardRecord>::create(card));
    for (int number = 1; number <= positions; ++number) {
        const double price = priceOf(number);
        const auto position = QSharedPointer<GoodsItem>::create();
        position->setPosnum(number);
        position->setCode(u"10%1"_s.arg(number));
        position->setPrice(price);
        position->setBquant(1.0);
        position->recalculate();
        position->setTmc(QSharedPointer<Tmc>::create(QList<QSharedPointer<TmcIndexPrice>>(
            {QSharedPointer<TmcIndexPrice>::create(shelfPriceCode, 1.2 * price),
                QSharedPointer<TmcIndexPrice>::create(clubPriceCode, 0.9 * price)})));
        document->addPosition(position);
    }
    return document;
}

} // namespace samples

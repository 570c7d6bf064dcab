#include "emulator/soap/answerwriter.h"

#include <QXmlStreamWriter>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QString envelopeNamespace()
{
    return u"http://schemas.xmlsoap.org/soap/envelope/"_s;
}

QString loyaltyNamespace()
{
    return u"http://schemas.korvel.example/loyalty/processing"_s;
}

using Content = std::function<void(QXmlStreamWriter &)>;

QByteArray envelope(const Content &content)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writer.setAutoFormatting(true);
    writer.setAutoFormattingIndent(1);
    writer.writeStartDocument();
    writer.writeNamespace(envelopeNamespace(), u"soap"_s);
    writer.writeStartElement(envelopeNamespace(), u"Envelope"_s);
    writer.writeStartElement(envelopeNamespace(), u"Body"_s);
    content(writer);
    writer.writeEndDocument();
    return bytes;
}

QByteArray processRequestResponse(const QString &payload, const Content &content)
{
    return envelope([&](QXmlStreamWriter &writer) {
        writer.writeStartElement(u"ProcessRequestResponse"_s);
        writer.writeDefaultNamespace(loyaltyNamespace());
        writer.writeStartElement(u"ProcessRequestResult"_s);
        writer.writeStartElement(payload);
        content(writer);
        writer.writeEndElement();
        writer.writeEndElement();
        writer.writeEndElement();
    });
}

void write(QXmlStreamWriter &writer, const QString &name, const QString &text)
{
    writer.writeTextElement(name, text);
}

void write(QXmlStreamWriter &writer, const QString &name, Amount amount)
{
    write(writer, name, amount.toString());
}

void write(QXmlStreamWriter &writer, const QString &name, int number)
{
    write(writer, name, QString::number(number));
}

void writeUnlessEmpty(QXmlStreamWriter &writer, const QString &name, const QString &text)
{
    if (!text.isEmpty())
        write(writer, name, text);
}

void writeOutcome(QXmlStreamWriter &writer, const Outcome &outcome)
{
    write(writer, u"ReturnCode"_s, outcome.code);
    write(writer, u"Message"_s, outcome.message);
}

void writeAttributes(QXmlStreamWriter &writer, const QMap<QString, QString> &attributes)
{
    for (auto it = attributes.begin(); it != attributes.end(); ++it) {
        writer.writeStartElement(u"ExtendedAttribute"_s);
        write(writer, u"Key"_s, it.key());
        write(writer, u"Value"_s, it.value());
        writer.writeEndElement();
    }
}

void writeCard(QXmlStreamWriter &writer, const CardFigures &card)
{
    write(writer, u"CardNumber"_s, card.number);
    write(writer, u"CardStatus"_s, card.status);
    write(writer, u"CardType"_s, card.type);
    write(writer, u"CardNormalActiveBalance"_s, card.balance);
    write(writer, u"FullName"_s, card.holder);
    write(writer, u"Email"_s, card.email);
    write(writer, u"AllowReceiveChequeByEmail"_s, card.chequesByEmail ? u"true"_s : u"false"_s);
    writeAttributes(writer, card.attributes);
}

void writeTotals(QXmlStreamWriter &writer, const ChequeFigures &figures)
{
    write(writer, u"TransactionID"_s, figures.transaction);
    write(writer, u"Processed"_s, figures.processed.toString(u"yyyy-MM-ddThh:mm:ss"_s));
    write(writer, u"Summ"_s, figures.sum);
    write(writer, u"Discount"_s, figures.sum - figures.sumDiscounted);
    write(writer, u"SummDiscounted"_s, figures.sumDiscounted);
    write(writer, u"AvailablePayment"_s, figures.available);
    write(writer, u"CardNormalActiveBalance"_s, figures.balance);
    write(writer, u"ChargedStatusBonus"_s, figures.earnedStatus);
    write(writer, u"ActiveChargedBonus"_s, figures.earned + figures.earnedStatus);
    write(writer, u"WriteoffBonus"_s, figures.spent);
}

void writeCoupons(QXmlStreamWriter &writer, const std::vector<AnsweredCoupon> &coupons)
{
    if (coupons.empty())
        return;
    writer.writeStartElement(u"Coupons"_s);
    for (const AnsweredCoupon &coupon : coupons) {
        writer.writeStartElement(u"Coupon"_s);
        write(writer, u"Number"_s, coupon.number);
        writeUnlessEmpty(writer, u"EmissionID"_s, coupon.emission);
        write(writer, u"ApplicabilityCode"_s, static_cast<int>(coupon.applicability));
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void writeInstantCoupons(QXmlStreamWriter &writer, const QStringList &numbers)
{
    if (numbers.isEmpty())
        return;
    writer.writeStartElement(u"InstantCoupons"_s);
    for (const QString &number : numbers) {
        writer.writeStartElement(u"InstantCoupon"_s);
        write(writer, u"Number"_s, number);
        writer.writeEndElement();
    }
    writer.writeEndElement();
}

void writePosition(QXmlStreamWriter &writer, const AnsweredPosition &position)
{
    const Percent discount = Percent::share(position.sum - position.sumDiscounted, position.sum);
    writer.writeStartElement(u"Item"_s);
    write(writer, u"PositionNumber"_s, position.number);
    write(writer, u"Summ"_s, position.sum);
    write(writer, u"Discount"_s, discount.toString());
    write(writer, u"SummDiscounted"_s, position.sumDiscounted);
    write(writer, u"ActiveChargedBonus"_s, position.earned + position.earnedStatus);
    write(writer, u"ChargedStatusBonus"_s, position.earnedStatus);
    write(writer, u"WriteoffBonus"_s, position.spent);
    writeAttributes(writer, position.attributes);
    writer.writeEndElement();
}

void writeCheque(QXmlStreamWriter &writer, const ChequeFigures &figures)
{
    writeTotals(writer, figures);
    writeUnlessEmpty(writer, u"VerificationCode"_s, figures.verificationCode);
    writeUnlessEmpty(writer, u"CashierMessage"_s, figures.cashierMessage);
    writeUnlessEmpty(writer, u"ChequeMessage"_s, figures.chequeMessage);
    writeCoupons(writer, figures.coupons);
    writeInstantCoupons(writer, figures.instantCoupons);
    for (const AnsweredPosition &position : figures.positions)
        writePosition(writer, position);
}

struct AnswerVisitor
{
    QByteArray operator()(const BalanceAnswer &answer) const { return writeAnswer(answer); }
    QByteArray operator()(const ChequeAnswer &answer) const { return writeAnswer(answer); }
    QByteArray operator()(const RepeatedAnswer &answer) const { return answer.xml; }
};

} // namespace

QByteArray writeAnswer(const BalanceAnswer &answer)
{
    return processRequestResponse(u"BalanceResponse"_s, [&](QXmlStreamWriter &writer) {
        writeOutcome(writer, answer.outcome);
        if (answer.card)
            writeCard(writer, *answer.card);
    });
}

QByteArray writeAnswer(const ChequeAnswer &answer)
{
    return processRequestResponse(u"ChequeResponse"_s, [&](QXmlStreamWriter &writer) {
        writeOutcome(writer, answer.outcome);
        if (answer.figures)
            writeCheque(writer, *answer.figures);
    });
}

QByteArray writeAnswer(const Answer &answer)
{
    return std::visit(AnswerVisitor(), answer);
}

QByteArray writeFault(FaultOrigin origin, const QString &message)
{
    return envelope([&](QXmlStreamWriter &writer) {
        writer.writeStartElement(envelopeNamespace(), u"Fault"_s);
        write(writer, u"faultcode"_s,
            origin == FaultOrigin::Client ? u"soap:Client"_s : u"soap:Server"_s);
        write(writer, u"faultstring"_s, message);
        writer.writeEndElement();
    });
}

} // namespace emulator

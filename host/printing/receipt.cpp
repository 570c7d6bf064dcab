#include "host/printing/receipt.h"

#include "host/documents/money.h"
#include "host/printing/columns.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace receipt {

namespace {

constexpr int kopeckDigits = 2;
constexpr int quantityDigits = 3;
const QString indent = u"  "_s;

QString amount(double value)
{
    return QString::number(value, 'f', kopeckDigits);
}

QString taken(double value)
{
    return u'-' + amount(value);
}

// Three digits as on scales, but "2", not "2.000".
QString quantity(double value)
{
    static const QRegularExpression idleZeros(u"\\.?0+\\z"_s);
    return QString::number(value, 'f', quantityDigits).remove(idleZeros);
}

QString line(const QString &left, const QString &right)
{
    return columns::spread(left, right, paperWidth);
}

void addCounting(QStringList &lines, const QString &left, double value, bool isTaken)
{
    if (money::counts(value))
        lines.append(line(left, isTaken ? taken(value) : amount(value)));
}

bool comesBack(const AbstractDocument &document)
{
    return document.getOperationKind() == EOperationKind::GoodsComeBack;
}

QVariantMap positionData(const GoodsItem &position)
{
    const QString multiplied = u"%1%2 %3 × %4"_s.arg(indent, quantity(position.getBquant()),
        position.getUnitName(), amount(position.getPrice()));
    QStringList lines = columns::wrapped(position.getName(), paperWidth);
    lines.append(line(multiplied, amount(position.getSumn())));
    const double points = position.getPointsPaid();
    const double discount = position.getSumn() - position.getSumb() - points;
    addCounting(lines, indent + u"Скидка"_s, discount, true);
    addCounting(lines, indent + u"Оплачено баллами"_s, points, true);
    return {{u"lines"_s, lines}};
}

QVariantList positions(const AbstractDocument &document)
{
    QVariantList items;
    const auto goods = document.getGoods();
    for (const auto &position : goods)
        items.append(positionData(*position));
    return items;
}

QStringList totals(const AbstractDocument &document)
{
    const double before = document.getSumBeforeDiscounts();
    const double after = document.getSumAfterDiscounts();
    const double points = document.getPointsPaid();
    QStringList lines;
    if (!money::equal(before, after))
        lines.append(line(u"Сумма"_s, amount(before)));
    addCounting(lines, u"Скидка"_s, before - after - points, true);
    addCounting(lines, u"Оплачено баллами"_s, points, true);
    lines.append(line(u"ИТОГО"_s, amount(after)));
    return lines;
}

QStringList payments(const AbstractDocument &document)
{
    QStringList lines;
    double sum = 0.0;
    const auto paid = document.getPayments();
    for (const Payment &payment : paid) {
        lines.append(
            line(payment.kind == u"cash"_s ? u"Наличными"_s : u"Картой"_s, amount(payment.amount)));
        sum += payment.amount;
    }
    addCounting(lines, u"Сдача"_s, std::max(sum - document.getSumAfterDiscounts(), 0.0), false);
    return lines;
}

QStringList pointsOfSale(
    const AbstractDocument &sale, const DocumentCardRecord &card, Booking booking)
{
    QStringList lines;
    addCounting(lines, u"Списано баллов"_s, sale.getPointsPaid(), false);
    if (booking == Booking::Later)
        return lines << u"Баллы будут начислены позже"_s;
    addCounting(lines, u"Начислено баллов"_s, sale.getEffects().pointsEarned, false);
    if (card.getBonusBalance().isValid())
        lines.append(line(u"Баланс баллов"_s, amount(card.getBonusBalance().toDouble())));
    return lines;
}

// The balance on the record is the one of the sale, and a return's answer brings no newer one.
QStringList pointsOfReturn(const AbstractDocument &document, Booking booking)
{
    QStringList lines;
    addCounting(lines, u"Возвращено баллов"_s, document.getPointsPaid(), false);
    return lines << (booking == Booking::Later ? u"Баллы за покупку будут пересчитаны позже"_s
                                               : u"Баллы за покупку пересчитаны"_s);
}

QStringList loyalty(const AbstractDocument &document, Booking booking)
{
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!card)
        return {};
    QStringList lines{line(u"Карта"_s, card->getNumber().toString())};
    if (const auto client = card->getCard()->getClient(); client && !client->getName().isEmpty())
        lines.append(line(u"Покупатель"_s, client->getName()));
    return lines
        + (comesBack(document) ? pointsOfReturn(document, booking)
                               : pointsOfSale(document, *card, booking));
}

// The loyalty system's texts come as a list with the calculation and joined in one text with the
// registration, often the same ones.
QStringList messages(const AbstractDocument &document)
{
    static const QString separator = u"##"_s;
    QStringList texts = document.getEffects().messagesToClient
        + document.getChequeText().split(separator, Qt::SkipEmptyParts);
    texts.removeDuplicates();
    QStringList lines;
    for (const QString &text : std::as_const(texts))
        for (const QString &paragraph : text.split(u'\n'))
            lines.append(columns::wrapped(paragraph, paperWidth));
    return lines;
}

QStringList heading(const AbstractDocument &document)
{
    const QDateTime time
        = document.getClosed().isValid() ? document.getClosed() : document.getOpened();
    QStringList lines{
        columns::centred(comesBack(document) ? u"ВОЗВРАТ"_s : u"КАССОВЫЙ ЧЕК"_s, paperWidth),
        line(u"Магазин "_s + document.getShop(), u"Касса "_s + document.getTill()),
        line(u"Чек № "_s + document.getNumber(), time.toString(u"dd.MM.yyyy HH:mm"_s)),
    };
    if (!document.getReferencedNumber().isEmpty())
        lines.append(u"К чеку № "_s + document.getReferencedNumber());
    return lines;
}

QVariantMap block(const QStringList &lines)
{
    return {{u"lines"_s, lines}};
}

QVariantList blocks(const QList<QStringList> &all)
{
    QVariantList filled;
    for (const QStringList &lines : all)
        if (!lines.isEmpty())
            filled.append(block(lines));
    return filled;
}

} // namespace

QVariantMap data(const AbstractDocument &document, Booking booking)
{
    return {
        {u"heading"_s, heading(document)},
        {u"rule"_s, QString(paperWidth, u'-')},
        {u"positions"_s, positions(document)},
        {u"totals"_s, totals(document)},
        {u"payments"_s, payments(document)},
        {u"loyalty"_s, blocks({loyalty(document, booking)})},
        {u"messages"_s, blocks({messages(document)})},
    };
}

} // namespace receipt

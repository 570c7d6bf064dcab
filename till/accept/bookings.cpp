#include "till/accept/bookings.h"

#include "host/net/restclient.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

const QString sale = u"Sale"_s;
const QString returned = u"Return"_s;
const QString rollback = u"Rollback"_s;
constexpr double leastQuantity = 0.0005; // quantities have three decimals

const tr::Tr answerLost(u"acceptAnswerLost"_s, u"ответ на запрос не пришёл"_s);
const tr::Tr noTransaction(u"acceptNoTransaction"_s, u"сервис не сообщил TransactionID"_s);

QString textAt(const QDomElement &payload, const QString &name)
{
    const QList<QDomElement> found = elementsAt(payload, {name});
    return found.isEmpty() ? QString() : found.first().text();
}

bool isDone(const Answer &answer)
{
    bool isNumber = false;
    const int code = textAt(answer.payload, u"ReturnCode"_s).toInt(&isNumber);
    return answer.error == RestClient::None && isNumber && code <= 0;
}

bool isRefused(const Answer &answer)
{
    return answer.error == RestClient::None && textAt(answer.payload, u"ReturnCode"_s).toInt() > 0;
}

bool isFault(const Answer &answer)
{
    return answer.kind() == u"Fault";
}

/// Nothing of the request has reached the service.
bool wasNotSent(const Answer &answer)
{
    return answer.error == RestClient::ConnectionRefused || answer.error == RestClient::BadAddress
        || answer.error == RestClient::NameNotResolved || answer.error == RestClient::TlsFailed;
}

QString reasonOf(const Answer &answer)
{
    if (answer.error != RestClient::None)
        return answer.errorText;
    const QString code = textAt(answer.payload, u"ReturnCode"_s);
    return code.isEmpty() ? answerLost.ui()
                          : u"%1 %2"_s.arg(code, textAt(answer.payload, u"Message"_s)).trimmed();
}

QString numberOf(const Request &request)
{
    return request.textAt({u"Number"_s});
}

QString cardOf(const Request &request)
{
    return request.textAt({u"Card"_s, u"CardNumber"_s});
}

QMap<QString, double> quantitiesOf(const Request &request)
{
    QMap<QString, double> quantities;
    for (const QDomElement &item : elementsAt(request.payload, {u"Item"_s}))
        quantities[textAt(item, u"Article"_s)] += textAt(item, u"Quantity"_s).toDouble();
    return quantities;
}

} // namespace

Bookings::Bookings(
    const Service &service, const RequestComposer &composer, std::function<QString()> newNumber)
    : m_service(service)
    , m_composer(composer)
    , m_newNumber(std::move(newNumber))
{ }

void Bookings::begin(const Request &request)
{
    m_underWay.reset();
    if (request.books())
        m_underWay = request;
}

void Bookings::end(const Answer &answer)
{
    const auto request = std::exchange(m_underWay, std::nullopt);
    if (!request || isRefused(answer) || wasNotSent(answer))
        return;
    if (request->operation() == rollback) {
        if (isDone(answer))
            noteRolledBack(request->textAt({u"TransactionReference"_s, u"TransactionID"_s}));
    } else if (isDone(answer)) {
        noteBooked(*request, answer);
    } else {
        m_doubts.append({*request, isFault(answer)});
    }
}

void Bookings::noteBooked(const Request &request, const Answer &answer)
{
    const QString transaction = textAt(answer.payload, u"TransactionID"_s);
    // A repeat is answered with the transaction of the first.
    if (std::any_of(m_bookings.begin(), m_bookings.end(), [&](const Booking &known) {
            return known.transaction == transaction
                && (!transaction.isEmpty() || numberOf(known.request) == numberOf(request));
        }))
        return;
    constexpr qsizetype lengthOfDay = 10;
    const QString processed = textAt(answer.payload, u"Processed"_s);
    m_bookings.append({request, transaction, processed.left(lengthOfDay), quantitiesOf(request)});
    ++m_booked;
    if (request.operation() == returned)
        addToSale(m_bookings.last(), -1);
}

void Bookings::noteRolledBack(const QString &transaction)
{
    const auto found = std::find_if(m_bookings.begin(), m_bookings.end(),
        [&](const Booking &known) { return known.transaction == transaction; });
    if (found == m_bookings.end())
        return;
    const Booking booking = *found;
    m_bookings.erase(found);
    ++m_takenBack;
    if (booking.request.operation() == returned)
        addToSale(booking, 1);
}

Bookings::Booking *Bookings::saleOf(const Booking &booking)
{
    const QString number = booking.request.textAt({u"ChequeReference"_s, u"Number"_s});
    const auto found = std::find_if(m_bookings.begin(), m_bookings.end(), [&](const Booking &one) {
        return one.request.operation() == sale && numberOf(one.request) == number;
    });
    return found == m_bookings.end() ? nullptr : &*found;
}

void Bookings::addToSale(const Booking &booking, double direction)
{
    Booking *const own = saleOf(booking);
    if (!own)
        return;
    for (auto part = booking.quantities.begin(); part != booking.quantities.end(); ++part)
        own->quantities[part.key()] += direction * part.value();
}

// As a till does with a cheque whose answer was lost. What was not booked the first time is booked
// now, and its transaction is known.
void Bookings::findOut(const Doubt &doubt)
{
    const Answer answer = m_service.ask(doubt.request.text);
    if (isDone(answer))
        noteBooked(doubt.request, answer);
    // Not taken, twice: nothing is there.
    else if (!doubt.wasFault || !isFault(answer))
        leave({doubt.request, {}, {}, {}}, answerLost.ui() + u"; " + reasonOf(answer));
}

void Bookings::takeBack()
{
    for (const Doubt &doubt : std::exchange(m_doubts, {}))
        findOut(doubt);
    while (!m_bookings.isEmpty()) {
        const Booking latest = m_bookings.last();
        const QString reason = undo(latest);
        // A rollback has taken it out.
        if (!m_bookings.isEmpty() && m_bookings.last().transaction == latest.transaction
            && numberOf(m_bookings.last().request) == numberOf(latest.request)) {
            m_bookings.removeLast();
            m_takenBack += reason.isEmpty() ? 1 : 0;
        }
        if (!reason.isEmpty())
            leave(latest, reason);
    }
}

QString Bookings::undo(const Booking &booking)
{
    if (booking.transaction.isEmpty())
        return undoOtherwise(booking, noTransaction.ui());
    Step step;
    step.sample = u"rollback-request"_s;
    step.values = {{u"Card.CardNumber"_s, u"card"_s},
        {u"TransactionReference.TransactionID"_s, u"transaction"_s}};
    Dialogue dialogue(
        {{u"card"_s, cardOf(booking.request)}, {u"transaction"_s, booking.transaction}},
        m_newNumber);
    const Answer answer = m_service.ask(m_composer.compose(step, dialogue).text);
    if (!isDone(answer))
        return undoOtherwise(booking, reasonOf(answer));
    noteRolledBack(booking.transaction);
    return {};
}

QString Bookings::undoOtherwise(const Booking &booking, const QString &reason)
{
    if (booking.request.operation() == returned)
        // The goods of a sale that all come back need no more.
        return saleOf(booking) ? QString() : reason;
    const bool isAllBack = std::all_of(booking.quantities.begin(), booking.quantities.end(),
        [](double left) { return left < leastQuantity; });
    if (isAllBack)
        return {};
    const QString whyNot = returnRest(booking);
    return whyNot.isEmpty() ? QString() : reason + u"; " + whyNot;
}

QString Bookings::returnRest(const Booking &booking)
{
    Step step;
    step.sample = u"return-request"_s;
    for (auto part = booking.quantities.begin(); part != booking.quantities.end(); ++part)
        if (part.value() >= leastQuantity)
            step.positions.append(
                {m_composer.articleNumber(part.key()), QString::number(part.value(), 'f', 3), 0});
    step.values = {{u"Card.CardNumber"_s, u"card"_s}, {u"Number"_s, u"number('rest')"_s},
        {u"ChequeReference.Number"_s, u"sale"_s}, {u"ChequeReference.DateTime"_s, u"day"_s}};
    Dialogue dialogue({{u"card"_s, cardOf(booking.request)}, {u"sale"_s, numberOf(booking.request)},
                          {u"day"_s, booking.day}},
        m_newNumber);
    const Answer answer = m_service.ask(m_composer.compose(step, dialogue).text);
    return isDone(answer) ? QString() : reasonOf(answer);
}

void Bookings::leave(const Booking &booking, const QString &reason)
{
    m_leftOver.append({booking.request.operation(), cardOf(booking.request),
        numberOf(booking.request), booking.transaction, reason});
}

} // namespace till::accept

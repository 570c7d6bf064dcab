// Answers of the service in a whole sale: what a till takes over from them, keeps, prints, pays,
// and sends back must stay in order. The input is one answer to everything, or an element
// "exchanges" with the answers in their order, the last one being that to the rest.

#include "fuzz/measure.h"
#include "fuzz/support/desk.h"

#include "client/answerguard.h"
#include "common/names.h"
#include "host/storage/documentjson.h"
#include "till/core/cannotdo.h"
#include "till/transcript/documentobject.h"

#include <QDomDocument>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr const char *severalAnswers = "<exchanges>";

QList<QByteArray> answersOf(const QByteArray &input)
{
    QDomDocument whole;
    if (!input.contains(severalAnswers) || korvelLoyaltyOnline::findDefect(input)
        || !whole.setContent(input) || whole.documentElement().tagName() != u"exchanges")
        return {input};
    QList<QByteArray> answers;
    for (QDomElement each = whole.documentElement().firstChildElement(); !each.isNull();
         each = each.nextSiblingElement()) {
        QDomDocument answer;
        answer.appendChild(answer.importNode(each, true));
        answers.append(answer.toByteArray());
    }
    return answers.isEmpty() ? QList<QByteArray>{input} : answers;
}

/// One step of the sale, as far as it is possible now.
template <typename Step> void attempt(const Step &step)
{
    try {
        (void)step();
    } catch (const till::CannotDo &) {
        // The till said why.
    }
}

void requireKept(AbstractDocument &document)
{
    const QByteArray kept = documentjson::write(document);
    const auto restored = documentjson::read(kept, u"document.json"_s);
    fuzz::require(documentjson::write(*restored) == kept, "a document is restored as it was kept");
    (void)till::documentObject(document).dump();
}

bool isCalculated(const AbstractDocument &document)
{
    return document.getStoredValue(korvel::group, korvel::plugindata::chequeData, {}).isValid();
}

/// Sells a cheque up to its payment; whether the service's answer was taken over.
bool calculate(fuzz::Desk &desk)
{
    till::Till &till = desk.till();
    constexpr double halfAKilo = 0.542;
    attempt([&] { return till.presentCard(u"2900000000017"_s, ECardNumberType::Keyed); });
    attempt([&] { return till.addPosition({u"1001"_s, 2.0, {}, {}, {}}); });
    attempt([&] { return till.addPosition({u"1003"_s, halfAKilo, {}, {}, {}}); });
    attempt([&] { return till.addCoupon(u"9900000000018"_s, {}); });
    attempt([&] { return till.calculate(); });
    const auto document = till.document();
    return document && isCalculated(*document);
}

void payAndClose(fuzz::Desk &desk)
{
    till::Till &till = desk.till();
    attempt([&] { return till.payWithPoints({}); });
    (void)till.receiptPreview();
    if (const auto document = till.document())
        requireKept(*document);
    attempt([&] { return till.pay(till::PaymentKind::Cash, {}); });
    attempt([&] { return till.close(); });
    attempt([&] { return till.cancel(); });
}

void takeBack(fuzz::Desk &desk)
{
    till::Till &till = desk.till();
    attempt([&] { return till.openReturnOf(u"1"_s); });
    attempt([&] { return till.close(); });
    attempt([&] { return till.cancel(); });
}

bool sell(const QByteArray &input)
{
    QList<QByteArray> answers = answersOf(input);
    fuzz::Desk desk([&answers](const QByteArray &) {
        return answers.size() > 1 ? answers.takeFirst() : answers.constFirst();
    });
    desk.cashier().addText(u"1234"_s);
    const bool taken = calculate(desk);
    payAndClose(desk);
    takeBack(desk);
    // What stuck to the card or the plug-in would show here.
    calculate(desk);
    return taken;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, sell);
}

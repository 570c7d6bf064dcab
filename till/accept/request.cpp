#include "till/accept/request.h"

#include "host/documents/money.h"
#include "host/framework/currenttime.h"
#include "host/framework/mockfactory.h"
#include "till/accept/expression.h"
#include "till/core/cannotdo.h"
#include "till/wire/readablemarkup.h"

#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

constexpr int indentation = 2;

[[noreturn]] void failOn(const Step &step, const QString &what)
{
    throw CannotDo(
        tr::Tr(u"acceptStep"_s, u"шаг %1: %2 — такого нет в запросе"_s).arg(step.name).arg(what),
        {u"acceptStepRemedy"_s, u"исправьте сценарий"_s});
}

void setText(QDomElement element, const QString &text)
{
    while (element.hasChildNodes())
        element.removeChild(element.firstChild());
    element.appendChild(element.ownerDocument().createTextNode(text));
}

void setChild(const QDomElement &parent, const QString &name, const QString &text)
{
    setText(parent.firstChildElement(name), text);
}

QString amount(double value)
{
    return amountValue(value).written();
}

void removeComments(QDomNode node)
{
    for (QDomNode child = node.firstChild(); !child.isNull();) {
        const QDomNode next = child.nextSibling();
        if (child.isComment())
            node.removeChild(child);
        else
            removeComments(child);
        child = next;
    }
}

QDomElement payloadOf(const QDomDocument &document)
{
    const QList<QDomElement> found = elementsAt(
        document.documentElement(), {u"soap:Body"_s, u"ProcessRequest"_s, u"request"_s});
    return found.isEmpty() ? QDomElement() : found.first().firstChildElement();
}

void setAt(const Step &step, QDomElement payload, const QString &path, const QString &text)
{
    if (path.startsWith(u'@')) {
        payload.setAttribute(path.mid(1), text);
        return;
    }
    const QList<QDomElement> found = elementsAt(payload, path.split(u'.'));
    if (found.isEmpty())
        failOn(step, path);
    setText(found.first(), text);
}

void takeOut(const Step &step, const QDomElement &payload)
{
    for (const QString &path : step.without) {
        const QList<QDomElement> found = elementsAt(payload, path.split(u'.'));
        if (found.isEmpty())
            failOn(step, path);
        for (const QDomElement &element : found)
            element.parentNode().removeChild(element);
    }
}

/// The sums as a till has them that has no answer for the cheque yet.
void fillSums(const QDomElement &payload, double sum)
{
    setChild(payload, u"Summ"_s, amount(sum));
    setChild(payload, u"Discount"_s, amount(0));
    setChild(payload, u"SummDiscounted"_s, amount(sum));
    if (!payload.firstChildElement(u"PaidByBonus"_s).isNull())
        setChild(payload, u"PaidByBonus"_s, amount(sum));
}

double fillItem(
    const QDomElement &item, int number, const Article &article, const QString &quantity)
{
    constexpr int decimals = 3;
    const double sum = money::roundedToKopecks(article.price * quantity.toDouble());
    setChild(item, u"PositionNumber"_s, QString::number(number));
    setChild(item, u"Article"_s, article.code);
    setChild(item, u"Price"_s, amount(article.price));
    setChild(item, u"Quantity"_s, QString::number(quantity.toDouble(), 'f', decimals));
    setChild(item, u"Summ"_s, amount(sum));
    setChild(item, u"Discount"_s, amount(0));
    setChild(item, u"SummDiscounted"_s, amount(sum));
    return sum;
}

void fillCoupons(const Step &step, const QDomElement &payload, Dialogue &dialogue)
{
    QDomElement coupons = payload.firstChildElement(u"Coupons"_s);
    const QDomElement pattern = coupons.firstChildElement(u"Coupon"_s);
    if (pattern.isNull())
        failOn(step, u"Coupons"_s);
    for (const QString &expression : step.coupons) {
        const QDomElement coupon = pattern.cloneNode().toElement();
        setChild(coupon, u"Number"_s, evaluate(expression, dialogue).written());
        coupons.appendChild(coupon);
    }
    coupons.removeChild(pattern);
}

} // namespace

bool Request::books() const
{
    return !operation().isEmpty() && payload.attribute(u"ChequeType"_s) != u"Soft";
}

QString Request::operation() const
{
    return textAt({u"OperationType"_s});
}

QString Request::textAt(const QStringList &path) const
{
    const QList<QDomElement> found = elementsAt(payload, path);
    return found.isEmpty() ? QString() : found.first().text();
}

RequestComposer::RequestComposer(
    QString protocolFolder, QString card, Sender sender, QList<Article> articles)
    : m_protocolFolder(std::move(protocolFolder))
    , m_card(std::move(card))
    , m_sender(std::move(sender))
    , m_articles(std::move(articles))
{ }

QDomDocument RequestComposer::sample(const QString &name) const
{
    QFile file(u"%1/samples/%2.xml"_s.arg(m_protocolFolder, name));
    QDomDocument document;
    // Names with their prefixes: what is sent has them where the sample has.
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file, false))
        throw CannotDo(tr::Tr(u"acceptSample"_s, u"%1: образец не читается"_s).arg(file.fileName()),
            {u"acceptSampleRemedy"_s, u"исправьте файл"_s});
    removeComments(document);
    return document;
}

void RequestComposer::fillSender(const QDomDocument &document, const QDomElement &payload) const
{
    const QList<QPair<QString, QString>> values{{u"POS"_s, m_sender.pos},
        {u"BusinessUnit"_s, m_sender.businessUnit}, {u"Organization"_s, m_sender.organization},
        {u"orgName"_s, m_sender.orgName}};
    for (const auto &[name, value] : values) {
        const QDomNodeList elements = document.elementsByTagName(name);
        for (int index = 0; index < elements.size() && !value.isEmpty(); ++index)
            setText(elements.at(index).toElement(), value);
    }
    setChild(payload, u"DateTime"_s,
        MockFactory<CurrentTime>::create()->currentDateTime().toString(u"yyyy-MM-ddTHH:mm:ss"));
    setText(payload.firstChildElement(u"Card"_s).firstChildElement(u"CardNumber"_s), m_card);
}

void RequestComposer::fillPositions(QDomElement payload, const QList<Position> &positions) const
{
    const QDomElement pattern = payload.firstChildElement(u"Item"_s).cloneNode().toElement();
    for (QDomElement own = pattern.firstChildElement(u"ExtendedAttribute"_s); !own.isNull();
         own = pattern.firstChildElement(u"ExtendedAttribute"_s))
        own.parentNode().removeChild(own);
    while (!payload.firstChildElement(u"Item"_s).isNull())
        payload.removeChild(payload.firstChildElement(u"Item"_s));
    double sum = 0;
    for (int index = 0; index < positions.size(); ++index) {
        const Position &position = positions[index];
        const QDomElement item = pattern.cloneNode().toElement();
        const int number = position.number > 0 ? position.number : index + 1;
        sum += fillItem(item, number,
            m_articles[(std::max(position.article, 1) - 1) % m_articles.size()], position.quantity);
        payload.insertBefore(item, payload.firstChildElement(u"DateTime"_s));
    }
    fillSums(payload, sum);
}

Request RequestComposer::compose(const Step &step, Dialogue &dialogue) const
{
    if (step.sample.isEmpty())
        return {step.body.toUtf8(), {}};
    const QDomDocument document = sample(step.sample);
    const QDomElement payload = payloadOf(document);
    fillSender(document, payload);
    if (!step.positions.isEmpty())
        fillPositions(payload, step.positions);
    if (!step.coupons.isEmpty())
        fillCoupons(step, payload, dialogue);
    for (auto value = step.values.begin(); value != step.values.end(); ++value)
        setAt(step, payload, value.key(), evaluate(value.value(), dialogue).written());
    takeOut(step, payload);
    QString text = document.toString(indentation);
    for (auto pair = step.replacements.begin(); pair != step.replacements.end(); ++pair)
        text.replace(pair.key(), pair.value());
    return {text.toUtf8(), payload};
}

int RequestComposer::articleNumber(const QString &code) const
{
    const auto found = std::find_if(m_articles.begin(), m_articles.end(),
        [&code](const Article &article) { return article.code == code; });
    return found == m_articles.end() ? 1 : static_cast<int>(found - m_articles.begin()) + 1;
}

QString indented(const QByteArray &xml)
{
    QDomDocument document;
    if (!isReadableMarkup(xml) || !document.setContent(xml, false))
        return QString::fromUtf8(xml);
    removeComments(document);
    return document.toString(indentation).trimmed();
}

} // namespace till::accept

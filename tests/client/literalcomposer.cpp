#include "tests/client/literalcomposer.h"

#include "host/documents/documentlogic.h"
#include "host/text/simpleformatter.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

using Values = QMap<QString, QVariant>;

constexpr double halfKopeck = 0.005;

/// Writes elements one inside the other.
class Writer
{
public:
    explicit Writer(QDomDocument &document)
        : m_document(document)
    { }

    QDomElement open(QDomNode parent, const QString &name)
    {
        return parent.appendChild(m_document.createElement(name)).toElement();
    }
    void text(QDomElement parent, const QString &name, QString content)
    {
        // Of the corpus's texts only this character is none that XML can carry.
        content.remove(QChar(u'\u0001'));
        open(parent, name).appendChild(m_document.createTextNode(content));
    }
    void amount(QDomElement parent, const QString &name, double value, int decimals = 2)
    {
        text(parent, name, QString::number(value, 'f', decimals));
    }

private:
    QDomDocument &m_document;
};

QString filled(const QString &mask, const QList<QObject *> &objects)
{
    QMap<QString, QString> resolved;
    return SimpleFormatter().format(mask, objects, 0, resolved);
}

QString filledForDocument(const QString &mask)
{
    return filled(mask, DocumentLogic().getObjects({}));
}

QList<QObject *> objectsOf(GoodsItem &position)
{
    QList<QObject *> objects;
    if (position.getTmc())
        for (const auto &price : position.getTmc()->getIndexPrices()) {
            price->setObjectName(u"indexPrice"_s + QString::number(price->getCode()));
            objects << price.data();
        }
    return objects << &position;
}

double percentage(double before, double after)
{
    return std::fabs(before - after) < halfKopeck ? 0.0 : 100.0 - after * 100.0 / before;
}

class Composer
{
public:
    Composer(const RandomCheque &cheque, const RequestSettings &settings, QDomDocument &request)
        : m_cheque(cheque)
        , m_settings(settings)
        , m_writer(request)
    { }

    void writePayload(QDomElement payload, const QDateTime &now)
    {
        const AbstractDocument &document = *m_cheque.document;
        payload.setAttribute(u"ChequeType"_s, m_cheque.type);
        m_writer.text(m_writer.open(payload, u"Card"_s), u"CardNumber"_s,
            document.getCardRecord(ECardMode::OnlineLoyalty)->getNumber().toString());
        m_writer.text(payload, u"OperationType"_s, u"Sale"_s);
        m_writer.text(payload, u"Number"_s, document.getNumber());
        writeChequeFigures(payload);
        writeConfirmation(payload);
        writeStoredAttributes(payload, storedFigures());
        writeCoupons(payload);
        for (const auto &position : document.getGoods())
            writePosition(payload, *position);
        m_writer.text(payload, u"DateTime"_s, now.toString(u"yyyy-MM-ddThh:mm:ss"_s));
        m_writer.text(payload, u"POS"_s, filledForDocument(m_settings.pos));
        m_writer.text(payload, u"Organization"_s, m_settings.organization);
        m_writer.text(payload, u"BusinessUnit"_s, filledForDocument(m_settings.businessUnit));
    }

private:
    Values storedValues(const QString &key) const
    {
        return m_cheque.document->getStoredValue(u"KorvelLoyaltyOnline"_s, key, {}).toMap();
    }
    Values storedFigures() const { return storedValues(u"chequeData"_s); }

    void writeChequeFigures(const QDomElement &payload)
    {
        const Values stored = storedFigures();
        const double after = m_cheque.document->getSumAfterDiscounts();
        const QList<std::pair<QString, double>> figures
            = {{u"Summ"_s, m_cheque.document->getSumBeforeDiscounts()}, {u"Discount"_s, 0.0},
                {u"SummDiscounted"_s, after}, {u"PaidByBonus"_s, after}};
        for (const auto &[name, figure] : figures)
            m_writer.amount(
                payload, name, stored.contains(name) ? stored[name].toDouble() : figure);
    }

    void writeConfirmation(const QDomElement &payload)
    {
        if (!m_cheque.confirmation)
            return;
        const QDomElement element = m_writer.open(payload, u"WriteOffConfirm"_s);
        m_writer.text(element, u"Confirm"_s, m_cheque.confirmation->isConfirm() ? u"1"_s : u"0"_s);
        m_writer.text(
            element, u"SendCode"_s, m_cheque.confirmation->isSendCode() ? u"1"_s : u"0"_s);
        m_writer.text(element, u"VerificationCode"_s, m_cheque.confirmation->getVerificationCode());
    }

    void writePair(const QDomElement &attribute, const QString &key, const QString &value)
    {
        m_writer.text(attribute, u"Key"_s, key);
        m_writer.text(attribute, u"Value"_s, value);
    }

    bool writeStoredAttributes(const QDomElement &parent, const Values &figures)
    {
        const Values attributes = figures[u"ExtendedAttributes"_s].toMap();
        for (const QString &key : attributes.keys())
            writePair(
                m_writer.open(parent, u"ExtendedAttribute"_s), key, attributes[key].toString());
        return !attributes.isEmpty();
    }

    void writeCoupons(const QDomElement &payload)
    {
        if (m_cheque.document->getCoupons().isEmpty())
            return;
        const QDomElement coupons = m_writer.open(payload, u"Coupons"_s);
        for (const auto &coupon : m_cheque.document->getCoupons())
            m_writer.text(m_writer.open(coupons, u"Coupon"_s), u"Number"_s, coupon->getNumber());
    }

    double minimumPrice(const GoodsItem &position) const
    {
        if (m_settings.minRetailPriceForMarkdown > halfKopeck
            && position.getExtendedOptions().toUpper().contains(u"MARKDOWN"))
            return position.getMinRetailPrice();
        if (m_settings.minRetailPriceIndex >= 0 && position.getTmc())
            for (const auto &price : position.getTmc()->getIndexPrices())
                if (price->getCode() == m_settings.minRetailPriceIndex)
                    return price->getPrice();
        return 0.0;
    }

    void writePosition(const QDomElement &payload, GoodsItem &position)
    {
        const QString number = QString::number(position.getPosnum());
        const Values stored = storedValues(u"positionsData"_s)[number].toMap();
        const QDomElement item = m_writer.open(payload, u"Item"_s);
        m_writer.text(item, u"PositionNumber"_s, number);
        m_writer.text(item, u"Article"_s, position.getCode());
        m_writer.amount(item, u"Price"_s, position.getPrice());
        m_writer.amount(item, u"Quantity"_s, position.getBquant(), 3);
        const QList<std::pair<QString, double>> figures = {{u"Summ"_s, position.getSumn()},
            {u"Discount"_s, percentage(position.getSumn(), position.getSumb())},
            {u"SummDiscounted"_s, position.getSumb()}};
        for (const auto &[name, figure] : figures)
            m_writer.amount(item, name, stored.contains(name) ? stored[name].toDouble() : figure);
        m_writer.amount(item, u"Mcp"_s, minimumPrice(position));
        if (writeStoredAttributes(item, stored))
            return;
        for (const RequestSettings::Section &section : m_settings.sections)
            writeConfigured(item, section, position);
        if (m_settings.sendsOptions && !position.getExtendedOptions().isEmpty())
            for (const QString &option : position.getExtendedOptions().split(u','))
                writePair(
                    m_writer.open(item, u"ExtendedAttribute"_s), u"extendedoptions"_s, option);
    }

    void writeConfigured(
        const QDomElement &item, const RequestSettings::Section &section, GoodsItem &position)
    {
        QMap<QString, QString> settings;
        for (const auto &[key, value] : section.settings)
            settings[key] = value;
        QMap<QString, QString> pairs;
        for (const auto &[key, name] : section.settings) {
            if (!key.startsWith(u"key"))
                continue;
            const QString value
                = filled(settings.value(u"value"_s + key.mid(3)), objectsOf(position));
            if (!name.isEmpty() && !value.isEmpty())
                pairs[name] = value;
        }
        if (pairs.isEmpty())
            return;
        const QDomElement attribute = m_writer.open(item, u"ExtendedAttribute"_s);
        for (const QString &name : pairs.keys())
            writePair(attribute, name, pairs[name]);
    }

    const RandomCheque &m_cheque;
    const RequestSettings &m_settings;
    Writer m_writer;
};

} // namespace

QDomDocument literallyComposed(
    const RandomCheque &cheque, const RequestSettings &settings, const QDateTime &now)
{
    QDomDocument request;
    request.appendChild(
        request.createProcessingInstruction(u"xml"_s, u"version='1.0' encoding='utf-8'"_s));
    Writer writer(request);
    QDomElement envelope = writer.open(request, u"soap:Envelope"_s);
    envelope.setAttribute(u"xmlns:soap"_s, u"http://schemas.xmlsoap.org/soap/envelope/"_s);
    envelope.setAttribute(u"xmlns:xsi"_s, u"http://www.w3.org/2001/XMLSchema-instance"_s);
    envelope.setAttribute(u"xmlns:xsd"_s, u"http://www.w3.org/2001/XMLSchema"_s);
    QDomElement process = writer.open(writer.open(envelope, u"soap:Body"_s), u"ProcessRequest"_s);
    process.setAttribute(u"xmlns"_s, u"http://schemas.korvel.example/loyalty/processing"_s);
    writer.text(process, u"orgName"_s, settings.orgName);
    const QDomElement payload = writer.open(writer.open(process, u"request"_s), u"ChequeRequest"_s);
    Composer(cheque, settings, request).writePayload(payload, now);
    return request;
}

#include "till/wire/exchangefacts.h"

#include "host/documents/money.h"
#include "till/wire/readablemarkup.h"

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <utility>

using namespace Qt::StringLiterals;

namespace till {

namespace {

using Values = QHash<QString, QString>;

const QString typeOfCheque = u"ChequeType"_s;
const QString payloadName = u"payload"_s;

const QStringList &requests()
{
    static const QStringList names{u"BalanceRequest"_s, u"ChequeRequest"_s};
    return names;
}

const QStringList &answers()
{
    static const QStringList names{u"BalanceResponse"_s, u"ChequeResponse"_s};
    return names;
}

/// Reads the texts of a message's own elements, and of the card's within it.
class PayloadReader
{
public:
    PayloadReader(const QByteArray &xml, QStringList payloads)
        : m_reader(xml)
        , m_payloads(std::move(payloads))
    { }

    Values read()
    {
        while (!m_reader.atEnd()) {
            const auto token = m_reader.readNext();
            if (token == QXmlStreamReader::StartElement)
                begin();
            else if (token == QXmlStreamReader::Characters && isWanted())
                m_text += m_reader.text();
            else if (token == QXmlStreamReader::EndElement)
                end();
        }
        return m_values;
    }

private:
    // Behind the payload's own level only the card's number counts.
    [[nodiscard]] bool isWanted() const
    {
        const qsizetype depth = m_path.size();
        return depth == 2 || (depth == 3 && m_path.at(1) == u"Card");
    }

    void begin()
    {
        const QString name = m_reader.name().toString();
        if (m_path.isEmpty() && !m_payloads.contains(name))
            return;
        m_path.append(name);
        m_text.clear();
        if (m_path.size() > 1)
            return;
        m_values.insert(payloadName, name);
        m_values.insert(typeOfCheque, m_reader.attributes().value(typeOfCheque).toString());
    }

    void end()
    {
        if (m_path.isEmpty())
            return;
        if (isWanted() && !m_values.contains(m_path.constLast()))
            m_values.insert(m_path.constLast(), m_text.trimmed());
        m_path.removeLast();
        m_text.clear();
    }

    QXmlStreamReader m_reader;
    QStringList m_payloads;
    QStringList m_path; ///< from the payload down
    QString m_text;
    Values m_values;
};

Values valuesOf(const QByteArray &xml, const QStringList &payloads)
{
    return isReadableMarkup(xml) ? PayloadReader(xml, payloads).read() : Values();
}

std::optional<double> amount(const Values &values, const QString &name)
{
    bool ok = false;
    const double read = values.value(name).toDouble(&ok);
    return ok ? std::optional(read) : std::nullopt;
}

ServiceOperation operationOf(const Values &values)
{
    if (values.value(payloadName) == u"BalanceRequest")
        return ServiceOperation::Balance;
    const QString operation = values.value(u"OperationType"_s);
    if (operation == u"Return")
        return ServiceOperation::Return;
    if (operation == u"Rollback")
        return ServiceOperation::Rollback;
    if (operation != u"Sale")
        return ServiceOperation::Unknown;
    return values.value(typeOfCheque) == u"Soft" ? ServiceOperation::Calculate
                                                 : ServiceOperation::Register;
}

const QList<QPair<ServiceOperation, QString>> &operationNames()
{
    static const QList<QPair<ServiceOperation, QString>> names{
        {ServiceOperation::Balance, u"balance"_s}, {ServiceOperation::Calculate, u"calculate"_s},
        {ServiceOperation::Register, u"register"_s}, {ServiceOperation::Return, u"return"_s},
        {ServiceOperation::Rollback, u"rollback"_s}};
    return names;
}

} // namespace

QString operationName(ServiceOperation operation)
{
    for (const auto &[known, name] : operationNames())
        if (known == operation)
            return name;
    return u"unknown"_s;
}

ServiceOperation operationNamed(const QString &name)
{
    for (const auto &[operation, known] : operationNames())
        if (known == name)
            return operation;
    return ServiceOperation::Unknown;
}

RequestFacts requestFacts(const QByteArray &request)
{
    const Values values = valuesOf(request, requests());
    RequestFacts facts;
    facts.operation = operationOf(values);
    facts.card = values.value(u"CardNumber"_s);
    facts.number = values.value(u"Number"_s);
    facts.sum = amount(values, u"SummDiscounted"_s);
    facts.points = amount(values, u"PaidByBonus"_s);
    return facts;
}

AnswerFacts answerFacts(const QByteArray &answer)
{
    const Values values = valuesOf(answer, answers());
    AnswerFacts facts;
    bool ok = false;
    const int code = values.value(u"ReturnCode"_s).toInt(&ok);
    if (ok)
        facts.returnCode = code;
    facts.message = values.value(u"Message"_s);
    facts.transaction = values.value(u"TransactionID"_s);
    facts.available = amount(values, u"AvailablePayment"_s);
    facts.charged = amount(values, u"ActiveChargedBonus"_s);
    if (facts.charged)
        facts.earned = money::roundedToKopecks(
            *facts.charged - amount(values, u"ChargedStatusBonus"_s).value_or(0.0));
    facts.spent = amount(values, u"WriteoffBonus"_s);
    facts.balance = amount(values, u"CardNormalActiveBalance"_s);
    facts.verificationCode = values.value(u"VerificationCode"_s);
    return facts;
}

} // namespace till

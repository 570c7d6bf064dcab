#include "client/interface.h"
#include "client/names.h"
#include "common/host/framework.h"
#include "common/host/services.h"

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString soapNamespace = u"http://schemas.xmlsoap.org/soap/envelope/"_s;
const QString schemaInstanceNamespace = u"http://www.w3.org/2001/XMLSchema-instance"_s;
const QString schemaNamespace = u"http://www.w3.org/2001/XMLSchema"_s;
const QString loyaltyNamespace = u"http://schemas.korvel.example/loyalty/processing"_s;

/// The host clock's time, local, without fraction and zone.
QString timeStamp()
{
    return MockFactory<CurrentTime>::create()->currentDateTime().toString(u"yyyy-MM-ddThh:mm:ss"_s);
}

QDomElement envelopeElement(QDomDocument &request)
{
    QDomElement envelope = request.createElement(u"soap:Envelope"_s);
    envelope.setAttribute(u"xmlns:soap"_s, soapNamespace);
    envelope.setAttribute(u"xmlns:xsi"_s, schemaInstanceNamespace);
    envelope.setAttribute(u"xmlns:xsd"_s, schemaNamespace);
    return envelope;
}

} // namespace

void Interface::formXmlRequest(QDomElement &payload, QDomDocument &request) const
{
    using xmlutils::createTextElement;
    QDomElement envelope = envelopeElement(request);
    QDomElement body = request.createElement(u"soap:Body"_s);
    QDomElement process = request.createElement(u"ProcessRequest"_s);
    process.setAttribute(u"xmlns"_s, loyaltyNamespace);
    process.appendChild(createTextElement(request, u"orgName"_s, m_orgName));
    QDomElement wrapper = request.createElement(u"request"_s);

    payload.appendChild(createTextElement(request, wire::dateTime, timeStamp()));
    payload.appendChild(createTextElement(request, wire::pos, formDataByMask(m_pos)));
    // Unlike its neighbours the organization is no mask.
    payload.appendChild(createTextElement(request, wire::organization, m_organization));
    payload.appendChild(
        createTextElement(request, wire::businessUnit, formDataByMask(m_businessUnit)));

    wrapper.appendChild(payload);
    process.appendChild(wrapper);
    body.appendChild(process);
    envelope.appendChild(body);
    request.appendChild(
        request.createProcessingInstruction(u"xml"_s, u"version='1.0' encoding='utf-8'"_s));
    request.appendChild(envelope);
}

QHash<QString, QString> Interface::formXmlRequestHeaders() const
{
    // Two substitutions, one after the other: a user name with a placeholder in it is filled too,
    // and the services in the field know such users by the filled name.
    const QString credentials = u"%1:%2"_s.arg(m_user).arg(m_password);
    const QByteArray encoded = credentials.toLocal8Bit().toBase64();
    return {{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s},
        {u"Authorization"_s, u"Basic %1"_s.arg(QString::fromLatin1(encoded))}};
}

} // namespace korvelLoyaltyOnline

#include "emulator/soap/xmldocument.h"

#include "emulator/soap/xmlguard.h"

#include <libxml/parser.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

struct ReleaseContext
{
    void operator()(xmlParserCtxt *context) const { xmlFreeParserCtxt(context); }
};

using Context = std::unique_ptr<xmlParserCtxt, ReleaseContext>;

QString fromXml(const xmlChar *text)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(text));
}

const xmlChar *toXml(const char *text)
{
    return reinterpret_cast<const xmlChar *>(text);
}

QString complaint(const Context &context)
{
    const xmlError &error = context->lastError;
    if (!error.message)
        return u"the request is empty"_s;
    return u"line %1: not XML: %2"_s.arg(error.line)
        .arg(QString::fromUtf8(error.message).simplified());
}

} // namespace

XmlElement::XmlElement(const xmlNode *node)
    : m_node(node)
{ }

QString XmlElement::name() const
{
    return m_node ? fromXml(m_node->name) : QString();
}

QString XmlElement::text() const
{
    if (!m_node)
        return {};
    const std::unique_ptr<xmlChar, decltype(xmlFree)> content(xmlNodeGetContent(m_node), xmlFree);
    return fromXml(content.get());
}

QString XmlElement::attribute(const char *name) const
{
    if (!m_node)
        return {};
    const std::unique_ptr<xmlChar, decltype(xmlFree)> content(
        xmlGetNoNsProp(m_node, toXml(name)), xmlFree);
    return fromXml(content.get());
}

long XmlElement::line() const
{
    return m_node ? xmlGetLineNo(m_node) : 0;
}

XmlElement XmlElement::firstChild() const
{
    const xmlNode *node = m_node ? m_node->children : nullptr;
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return XmlElement(node);
}

XmlElement XmlElement::next() const
{
    const xmlNode *node = m_node->next;
    while (node && node->type != XML_ELEMENT_NODE)
        node = node->next;
    return XmlElement(node);
}

XmlElement XmlElement::child(const char *name) const
{
    XmlElement element = firstChild();
    while (element && !xmlStrEqual(element.m_node->name, toXml(name)))
        element = element.next();
    return element;
}

std::vector<XmlElement> XmlElement::children(const char *name) const
{
    std::vector<XmlElement> found;
    for (XmlElement element = firstChild(); element; element = element.next()) {
        if (xmlStrEqual(element.m_node->name, toXml(name)))
            found.push_back(element);
    }
    return found;
}

XmlDocument XmlDocument::parse(const QByteArray &bytes)
{
    if (const QString unfit = complaintAboutXml(bytes); !unfit.isEmpty())
        throw RequestError(unfit);
    const Context context(xmlNewParserCtxt());
    if (!context)
        throw std::bad_alloc();
    // The guard has bounded what could grow, and the server the size, so the parser's own limits
    // on long texts need not keep large cheques out.
    constexpr int options
        = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE;
    XmlDocument document(xmlCtxtReadMemory(context.get(), bytes.constData(),
        static_cast<int>(bytes.size()), "request", "UTF-8", options));
    if (!document.m_document)
        throw RequestError(complaint(context));
    return document;
}

XmlElement XmlDocument::root() const
{
    return XmlElement(xmlDocGetRootElement(m_document.get()));
}

} // namespace emulator

#include "tests/support/schema.h"

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <stdexcept>

namespace {

template <auto Free> struct Freed
{
    template <typename Type> void operator()(Type *object) const { Free(object); }
};

using ParserContext = std::unique_ptr<xmlSchemaParserCtxt, Freed<xmlSchemaFreeParserCtxt>>;
using Schema = std::unique_ptr<xmlSchema, Freed<xmlSchemaFree>>;
using ValidContext = std::unique_ptr<xmlSchemaValidCtxt, Freed<xmlSchemaFreeValidCtxt>>;
using Document = std::unique_ptr<xmlDoc, Freed<xmlFreeDoc>>;

extern "C" void note(void *errors, xmlErrorPtr error)
{
    static_cast<QStringList *>(errors)->append(QStringLiteral("%1: %2").arg(
        QString::number(error->line), QString::fromUtf8(error->message).trimmed()));
}

} // namespace

struct XmlSchema::Private
{
    Schema schema;
};

XmlSchema::XmlSchema(const QString &fileName)
    : m_private(new Private)
{
    const ParserContext context(xmlSchemaNewParserCtxt(fileName.toUtf8().constData()));
    QStringList errors;
    xmlSchemaSetParserStructuredErrors(context.get(), note, &errors);
    m_private->schema.reset(xmlSchemaParse(context.get()));
    if (!m_private->schema)
        throw std::runtime_error(QString(fileName + u": " + errors.join(u"; ")).toStdString());
}

XmlSchema::~XmlSchema() = default;

QStringList XmlSchema::errorsOf(const QByteArray &document) const
{
    const Document parsed(xmlReadMemory(document.constData(), static_cast<int>(document.size()),
        nullptr, nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR));
    if (!parsed)
        return {QStringLiteral("not well-formed")};
    const ValidContext context(xmlSchemaNewValidCtxt(m_private->schema.get()));
    QStringList errors;
    xmlSchemaSetValidStructuredErrors(context.get(), note, &errors);
    if (xmlSchemaValidateDoc(context.get(), parsed.get()) != 0 && errors.isEmpty())
        errors.append(QStringLiteral("invalid for a reason that was not told"));
    return errors;
}

#include "till/accept/schema.h"

#include "till/core/cannotdo.h"

#include <QFile>
#include <QTemporaryDir>

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

template <auto Free> struct Freed
{
    template <typename Type> void operator()(Type *object) const { Free(object); }
};

using ParserContext = std::unique_ptr<xmlSchemaParserCtxt, Freed<xmlSchemaFreeParserCtxt>>;
using Schema = std::unique_ptr<xmlSchema, Freed<xmlSchemaFree>>;
using ValidContext = std::unique_ptr<xmlSchemaValidCtxt, Freed<xmlSchemaFreeValidCtxt>>;
using XmlContext = std::unique_ptr<xmlParserCtxt, Freed<xmlFreeParserCtxt>>;
using Document = std::unique_ptr<xmlDoc, Freed<xmlFreeDoc>>;

QString textOf(const xmlError &error)
{
    return u"%1: %2"_s.arg(
        QString::number(error.line), QString::fromUtf8(error.message).simplified());
}

extern "C" void keepFirst(void *kept, xmlError *error)
{
    auto *text = static_cast<QString *>(kept);
    if (text->isEmpty())
        *text = textOf(*error);
}

/// libxml2 opens files, and one of them imports the other.
void copyTo(const QTemporaryDir &folder, const QString &protocolFolder)
{
    for (const QString &name : {u"loyalty.xsd"_s, u"soap-envelope.xsd"_s})
        QFile::copy(protocolFolder + u'/' + name, folder.filePath(name));
}

Schema readSchema(const QString &fileName, QString &complaint)
{
    const ParserContext context(xmlSchemaNewParserCtxt(QFile::encodeName(fileName).constData()));
    if (!context)
        return {};
    xmlSchemaSetParserStructuredErrors(context.get(), keepFirst, &complaint);
    return Schema(xmlSchemaParse(context.get()));
}

} // namespace

struct MessageSchema::Private
{
    Schema schema;
};

MessageSchema::MessageSchema(const QString &protocolFolder)
    : m_private(std::make_unique<Private>())
{
    const QTemporaryDir folder;
    copyTo(folder, protocolFolder);
    QString complaint;
    m_private->schema = readSchema(folder.filePath(u"soap-envelope.xsd"_s), complaint);
    if (!m_private->schema)
        throw CannotDo(tr::Tr(u"acceptSchema"_s, u"%1: схема не читается: %2"_s)
                           .arg(protocolFolder)
                           .arg(complaint),
            {u"acceptSchemaRemedy"_s, u"исправьте файлы схемы"_s});
}

MessageSchema::~MessageSchema() = default;

QString MessageSchema::complaintAbout(const QByteArray &message) const
{
    const XmlContext parser(xmlNewParserCtxt());
    const Document document(
        xmlCtxtReadMemory(parser.get(), message.constData(), static_cast<int>(message.size()),
            nullptr, nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
    if (!document)
        return textOf(parser->lastError);
    const ValidContext context(xmlSchemaNewValidCtxt(m_private->schema.get()));
    QString complaint;
    xmlSchemaSetValidStructuredErrors(context.get(), keepFirst, &complaint);
    return xmlSchemaValidateDoc(context.get(), document.get()) == 0 ? QString() : complaint;
}

} // namespace till::accept

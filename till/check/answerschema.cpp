#include "till/check/answerschema.h"

#include <QFile>

#include <libxml/parser.h>
#include <libxml/xmlIO.h>
#include <libxml/xmlschemas.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

// The envelope's schema imports the other one by its relative address; under this made-up scheme
// the library asks us for both instead of the file system.
constexpr const char *scheme = "korvel-check:";
constexpr const char *envelopeAddress = "korvel-check:///soap-envelope.xsd";
const QString folder = u":/korvel/protocol"_s;

template <auto release> struct Release
{
    template <typename T> void operator()(T *object) const { release(object); }
};
using Parser = std::unique_ptr<xmlSchemaParserCtxt, Release<xmlSchemaFreeParserCtxt>>;
using Schema = std::unique_ptr<xmlSchema, Release<xmlSchemaFree>>;
using Validator = std::unique_ptr<xmlSchemaValidCtxt, Release<xmlSchemaFreeValidCtxt>>;
using Document = std::unique_ptr<xmlDoc, Release<xmlFreeDoc>>;
using Text = std::unique_ptr<xmlChar, void (*)(void *)>;

int isBuiltIn(const char *address)
{
    return std::strncmp(address, scheme, std::strlen(scheme)) == 0;
}

void *openBuiltIn(const char *address)
{
    auto file = std::make_unique<QFile>(folder + QString::fromLatin1(std::strrchr(address, '/')));
    return file->open(QIODevice::ReadOnly) ? file.release() : nullptr;
}

int readBuiltIn(void *file, char *buffer, int length)
{
    return static_cast<int>(static_cast<QFile *>(file)->read(buffer, length));
}

int closeBuiltIn(void *file)
{
    delete static_cast<QFile *>(file);
    return 0;
}

void offerBuiltInFiles()
{
    // Its own ways to open files are lost when the library is set up after ours.
    xmlInitParser();
    static const int offered
        = xmlRegisterInputCallbacks(isBuiltIn, openBuiltIn, readBuiltIn, closeBuiltIn);
    if (offered < 0)
        throw std::runtime_error("the built-in schemas cannot be offered to the XML library");
}

/// Element names come as "{namespace}Name"; the namespaces are always the same and hide the rest.
QString withoutNamespaces(QString message)
{
    return message.remove(u"{http://schemas.korvel.example/loyalty/processing}"_s)
        .remove(u"{http://schemas.xmlsoap.org/soap/envelope/}"_s);
}

QString complaintOf(const xmlError &error)
{
    return u"line %1: %2"_s.arg(error.line)
        .arg(withoutNamespaces(QString::fromUtf8(error.message).simplified()));
}

void keepFirst(void *kept, xmlError *error)
{
    auto *message = static_cast<QString *>(kept);
    if (message->isEmpty())
        *message = complaintOf(*error);
}

bool isNamed(const xmlNode *node, const char *name)
{
    return node->type == XML_ELEMENT_NODE
        && std::strcmp(reinterpret_cast<const char *>(node->name), name) == 0;
}

/// The first element of that name below a node, by whatever namespace; null: none.
xmlNode *firstNamed(xmlNode *node, const char *name)
{
    for (xmlNode *child = node ? node->children : nullptr; child; child = child->next) {
        if (isNamed(child, name))
            return child;
        if (xmlNode *found = firstNamed(child, name))
            return found;
    }
    return nullptr;
}

QString textOf(xmlNode *node)
{
    const Text text(node ? xmlNodeGetContent(node) : nullptr, xmlFree);
    return QString::fromUtf8(reinterpret_cast<const char *>(text.get())).trimmed();
}

void tell(xmlNode *root, ReadAnswer &read)
{
    read.isEnvelope = isNamed(root, "Envelope");
    bool isNumber = false;
    const int code = textOf(firstNamed(root, "ReturnCode")).toInt(&isNumber);
    if (isNumber)
        read.returnCode = code;
    xmlNode *const fault = firstNamed(root, "faultstring");
    read.message = textOf(fault ? fault : firstNamed(root, "Message"));
}

} // namespace

struct AnswerSchema::Private
{
    Schema schema;
};

AnswerSchema::AnswerSchema()
    : m_private(std::make_unique<Private>())
{
    offerBuiltInFiles();
    const Parser parser(xmlSchemaNewParserCtxt(envelopeAddress));
    m_private->schema.reset(parser ? xmlSchemaParse(parser.get()) : nullptr);
    if (!m_private->schema)
        throw std::runtime_error("the built-in schemas cannot be compiled");
}

AnswerSchema::~AnswerSchema() = default;

ReadAnswer AnswerSchema::read(const QByteArray &answer) const
{
    ReadAnswer read;
    const Document document(xmlReadMemory(answer.constData(), static_cast<int>(answer.size()),
        nullptr, nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
    if (!document || document->intSubset) {
        const xmlError *const error = xmlGetLastError();
        read.complaint = document || !error ? u"it has a document type"_s : complaintOf(*error);
        return read;
    }
    tell(xmlDocGetRootElement(document.get()), read);
    const Validator validator(xmlSchemaNewValidCtxt(m_private->schema.get()));
    xmlSchemaSetValidStructuredErrors(validator.get(), keepFirst, &read.complaint);
    if (xmlSchemaValidateDoc(validator.get(), document.get()) != 0 && read.complaint.isEmpty())
        read.complaint = u"the validator failed"_s;
    return read;
}

} // namespace till::check

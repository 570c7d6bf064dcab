#include "emulator/soap/schema.h"

#include "emulator/embedded.h"

#include <libxml/parser.h>
#include <libxml/xmlIO.h>

#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

// The envelope's schema imports the other one by its relative address; under this made-up scheme
// the library asks us for it instead of the file system.
constexpr const char *scheme = "korvel-embedded:";
constexpr const char *envelopeAddress = "korvel-embedded:///soap-envelope.xsd";

int isEmbedded(const char *address)
{
    return std::strncmp(address, scheme, std::strlen(scheme)) == 0;
}

struct EmbeddedFile
{
    QByteArray bytes;
    int position = 0;
};

void *openEmbedded(const char *address)
{
    const bool isEnvelope = std::strcmp(address, envelopeAddress) == 0;
    return new EmbeddedFile{isEnvelope ? embedded::envelopeSchema() : embedded::loyaltySchema()};
}

int readEmbedded(void *context, char *buffer, int length)
{
    auto *file = static_cast<EmbeddedFile *>(context);
    const int count = std::min(length, static_cast<int>(file->bytes.size()) - file->position);
    std::memcpy(buffer, file->bytes.constData() + file->position, static_cast<std::size_t>(count));
    file->position += count;
    return count;
}

int closeEmbedded(void *context)
{
    delete static_cast<EmbeddedFile *>(context);
    return 0;
}

void registerEmbeddedFiles()
{
    // Its own ways to open files are lost when the library is set up after ours.
    xmlInitParser();
    static const int registered
        = xmlRegisterInputCallbacks(isEmbedded, openEmbedded, readEmbedded, closeEmbedded);
    if (registered < 0)
        throw std::runtime_error("the built-in schemas cannot be offered to the XML library");
}

struct ReleaseParser
{
    void operator()(xmlSchemaParserCtxt *context) const { xmlSchemaFreeParserCtxt(context); }
};

struct ReleaseValidator
{
    void operator()(xmlSchemaValidCtxt *context) const { xmlSchemaFreeValidCtxt(context); }
};

/// Element names come as "{namespace}Name"; the namespace is always the same and hides the rest.
QString withoutNamespaces(QString message)
{
    return message.remove(u"{http://schemas.korvel.example/loyalty/processing}"_s)
        .remove(u"{http://schemas.xmlsoap.org/soap/envelope/}"_s);
}

void keepFirst(void *kept, xmlError *error)
{
    auto *message = static_cast<QString *>(kept);
    if (message->isEmpty())
        *message = withoutNamespaces(
            u"line %1: %2"_s.arg(error->line).arg(QString::fromUtf8(error->message).simplified()));
}

} // namespace

MessageSchema::MessageSchema()
{
    registerEmbeddedFiles();
    const std::unique_ptr<xmlSchemaParserCtxt, ReleaseParser> parser(
        xmlSchemaNewParserCtxt(envelopeAddress));
    m_schema.reset(parser ? xmlSchemaParse(parser.get()) : nullptr);
    if (!m_schema)
        throw std::runtime_error("the built-in schemas cannot be compiled");
}

QString MessageSchema::complaintAbout(const XmlDocument &document) const
{
    const std::unique_ptr<xmlSchemaValidCtxt, ReleaseValidator> validator(
        xmlSchemaNewValidCtxt(m_schema.get()));
    if (!validator)
        throw std::bad_alloc();
    QString complaint;
    xmlSchemaSetValidStructuredErrors(validator.get(), keepFirst, &complaint);
    const int outcome = xmlSchemaValidateDoc(validator.get(), document.handle());
    if (outcome < 0)
        throw std::runtime_error("the validator failed");
    return outcome == 0 ? QString() : complaint;
}

} // namespace emulator

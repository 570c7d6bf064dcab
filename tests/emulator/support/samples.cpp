#include "tests/emulator/support/samples.h"

#include "emulator/soap/xmldocument.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <libxml/xmlschemas.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QString protocolPath(const QString &name)
{
    return QString::fromUtf8(KORVEL_PROTOCOL_DIRECTORY) + u'/' + name;
}

void keepFirst(void *kept, xmlError *error)
{
    auto *message = static_cast<QString *>(kept);
    if (message->isEmpty())
        *message = QString::fromUtf8(error->message);
}

struct Release
{
    void operator()(xmlSchema *schema) const { xmlSchemaFree(schema); }
    void operator()(xmlSchemaParserCtxt *parser) const { xmlSchemaFreeParserCtxt(parser); }
    void operator()(xmlSchemaValidCtxt *validator) const { xmlSchemaFreeValidCtxt(validator); }
};

} // namespace

QStringList sampleNames()
{
    return QDir(protocolPath(u"samples"_s)).entryList({u"*.xml"_s}, QDir::Files, QDir::Name);
}

QByteArray sample(const char *name)
{
    QFile file(protocolPath(u"samples/"_s) + QString::fromLatin1(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

QString complaintOfSchemaFiles(const QByteArray &xml)
{
    const XmlDocument document = XmlDocument::parse(xml);
    const std::unique_ptr<xmlSchemaParserCtxt, Release> parser(
        xmlSchemaNewParserCtxt(protocolPath(u"soap-envelope.xsd"_s).toUtf8().constData()));
    const std::unique_ptr<xmlSchema, Release> schema(xmlSchemaParse(parser.get()));
    if (!schema)
        return u"the schema files cannot be compiled"_s;
    const std::unique_ptr<xmlSchemaValidCtxt, Release> validator(
        xmlSchemaNewValidCtxt(schema.get()));
    QString complaint;
    xmlSchemaSetValidStructuredErrors(validator.get(), keepFirst, &complaint);
    const int outcome = xmlSchemaValidateDoc(validator.get(), document.handle());
    return outcome == 0 ? QString() : u"does not fit: "_s + complaint;
}

} // namespace emulator

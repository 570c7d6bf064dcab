#pragma once

#include "emulator/soap/xmldocument.h"

#include <QString>

#include <libxml/xmlschemas.h>

#include <memory>

namespace emulator {

/// The schema of whole messages, read from what is built in. Compiled once; `check` may be
/// called any number of times on one thread.
class MessageSchema
{
public:
    MessageSchema();

    /// The validator's first complaint with its line; empty when the document fits.
    QString complaintAbout(const XmlDocument &document) const;

private:
    struct Release
    {
        void operator()(xmlSchema *schema) const { xmlSchemaFree(schema); }
    };

    std::unique_ptr<xmlSchema, Release> m_schema;
};

} // namespace emulator

#include "fuzz/support/wellformed.h"

#include <libxml/parser.h>

#include <memory>

namespace fuzz {

bool isWellFormed(const QByteArray &xml)
{
    const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
        xmlReadMemory(xml.constData(), static_cast<int>(xml.size()), "request", nullptr,
            XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    return document != nullptr;
}

} // namespace fuzz

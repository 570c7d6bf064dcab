#include "emulator/soap/indentedxml.h"

#include "emulator/soap/xmldocument.h"

namespace emulator {

namespace {

bool isBlankBetweenElements(const xmlNode *node)
{
    return xmlIsBlankNode(node) && (node->prev || node->next);
}

// What stands between elements is the sender's own indentation. The guard has bounded the depth.
void removeBlanks(xmlNode *parent)
{
    for (xmlNode *child = parent->children; child;) {
        xmlNode *next = child->next;
        if (isBlankBetweenElements(child)) {
            xmlUnlinkNode(child);
            xmlFreeNode(child);
        } else if (child->type == XML_ELEMENT_NODE) {
            removeBlanks(child);
        }
        child = next;
    }
}

} // namespace

QByteArray indentedXml(const QByteArray &message)
try {
    const XmlDocument document = XmlDocument::parse(message);
    removeBlanks(xmlDocGetRootElement(document.handle()));
    xmlChar *bytes = nullptr;
    int size = 0;
    xmlDocDumpFormatMemoryEnc(document.handle(), &bytes, &size, "UTF-8", 1);
    const std::unique_ptr<xmlChar, decltype(xmlFree)> owner(bytes, xmlFree);
    return {reinterpret_cast<const char *>(bytes), size};
} catch (const RequestError &) {
    return message;
}

} // namespace emulator

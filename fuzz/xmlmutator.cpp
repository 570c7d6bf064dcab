#include "fuzz/xmlmutator.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t greatest);

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;
using Elements = std::vector<xmlNode *>;

/// Values at the edges of what the schema and the reader take.
constexpr const char *edges[] = {"", "0.00", "-0.01", "999999999999.99", "1000000000000.00", "inf",
    "nan", "0.000", "0.001", "999999999.999", "0", "1", "-1", "2147483647", "2147483648", "Sale",
    "Return", "Rollback", "2024-02-30", "2024-03-05", "2024-03-05T17:04:09", "0001-01-01T00:00:00"};

void collect(xmlNode *node, Elements &elements)
{
    for (; node; node = node->next) {
        if (node->type != XML_ELEMENT_NODE)
            continue;
        elements.push_back(node);
        collect(node->children, elements);
    }
}

class Mutation
{
public:
    Mutation(const Elements &elements, unsigned int seed)
        : m_elements(elements)
        , m_random(seed)
    { }

    void apply()
    {
        using Step = void (Mutation::*)(xmlNode *);
        // Another element hardly ever fits, another text often does.
        constexpr Step steps[]
            = {&Mutation::setEdge, &Mutation::setEdge, &Mutation::mutateText, &Mutation::mutateText,
                &Mutation::remove, &Mutation::repeat, &Mutation::move, &Mutation::rename};
        const Step step = steps[below(std::size(steps))];
        (this->*step)(any());
    }

private:
    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
    }

    xmlNode *any() { return m_elements[below(m_elements.size())]; }

    /// One without children, where there is one: the text of others is only blanks.
    xmlNode *anyLeaf()
    {
        for (std::size_t attempt = 0; attempt < m_elements.size(); ++attempt) {
            xmlNode *node = any();
            if (xmlChildElementCount(node) == 0)
                return node;
        }
        return any();
    }

    static void setText(xmlNode *node, const std::string &text)
    {
        xmlNodeSetContent(node, nullptr);
        xmlNodeAddContent(node, reinterpret_cast<const xmlChar *>(text.c_str()));
    }

    void setEdge(xmlNode *) { setText(anyLeaf(), edges[below(std::size(edges))]); }

    void mutateText(xmlNode *)
    {
        constexpr std::size_t longest = 256;
        xmlNode *node = anyLeaf();
        const std::unique_ptr<xmlChar, decltype(xmlFree)> before(xmlNodeGetContent(node), xmlFree);
        std::string text(reinterpret_cast<const char *>(before.get()));
        text.resize(std::min(text.size(), longest));
        const std::size_t size = text.size();
        text.resize(longest);
        text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(text.data()), size, longest));
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '0');
        setText(node, text);
    }

    void remove(xmlNode *node)
    {
        if (!node->parent || node->parent->type != XML_ELEMENT_NODE)
            return;
        xmlUnlinkNode(node);
        xmlFreeNode(node);
    }

    void repeat(xmlNode *node)
    {
        if (node->parent && node->parent->type == XML_ELEMENT_NODE)
            xmlAddNextSibling(node, xmlCopyNode(node, 1));
    }

    void move(xmlNode *node)
    {
        xmlNode *target = any();
        for (xmlNode *above = target; above; above = above->parent) {
            if (above == node)
                return;
        }
        if (!target->parent || target->parent->type != XML_ELEMENT_NODE)
            return;
        xmlUnlinkNode(node);
        xmlAddNextSibling(target, node);
    }

    void rename(xmlNode *node) { xmlNodeSetName(node, any()->name); }

    const Elements &m_elements;
    std::mt19937 m_random;
};

} // namespace

std::size_t mutateXml(std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    const Document document(
        xmlReadMemory(reinterpret_cast<const char *>(data), static_cast<int>(size), "input",
            "UTF-8", XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (!document)
        return 0;
    Elements elements;
    collect(xmlDocGetRootElement(document.get()), elements);
    Mutation(elements, seed).apply();
    xmlChar *bytes = nullptr;
    int count = 0;
    xmlDocDumpMemory(document.get(), &bytes, &count);
    const std::unique_ptr<xmlChar, decltype(xmlFree)> owned(bytes, xmlFree);
    if (!bytes || static_cast<std::size_t>(count) > greatest)
        return 0;
    std::memcpy(data, bytes, static_cast<std::size_t>(count));
    return static_cast<std::size_t>(count);
}

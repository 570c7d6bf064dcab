#include "fuzz/mutation/xmlmutator.h"

#include "fuzz/mutation/mutate.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

namespace {

using Document = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;
using Elements = std::vector<xmlNode *>;

/// What an element says, by the looks of it.
struct Form
{
    const char *pattern; ///< in the notation of regular expressions, of the whole text
    std::vector<const char *> edges; ///< at the edges of what the schema and the readers take
};

const std::vector<Form> &forms()
{
    static const std::vector<Form> all = {
        {R"(-?\d+\.\d\d)",
            {"0.00", "0.01", "-0.01", "1.00", "100.00", "999999999999.99", "-999999999.99",
                "1000000000000.00"}},
        {R"(-?\d+\.\d{3})", {"0.000", "0.001", "1.000", "999999999.999", "-1.000"}},
        {R"(-?\d+)",
            {"0", "1", "2", "3", "-1", "80241", "80420", "81400", "2147483647", "2147483648",
                "00"}},
        {R"(\d{4}-\d\d-\d\d.*)",
            {"2024-03-05T17:04:09", "0001-01-01T00:00:00", "2024-02-29T23:59:59",
                "2024-02-30T00:00:00", "2024-03-05", "9999-12-31T23:59:59"}},
        {"Sale|Return|Rollback", {"Sale", "Return", "Rollback"}},
        {R"(\{.*\})",
            {"{}", R"({"activebalance":10,"promocoupons":1,"amount":2,"discount":1.5})",
                R"({"activebalance":1e9,"promocoupons":99999999,"amount":99,"discount":1e300})",
                R"({"activebalance":10,"promocoupons":-1,"amount":0,"discount":-1})", "[0]"}},
        {".*",
            {"", "0", "inf", "nan", "-0.01", "2900000000017", "a\u2013\u2013b", "\u0425\u043b",
                "${sum}", "<&>"}},
    };
    return all;
}

/// The forms' patterns, ready to be used.
const std::vector<std::regex> &patterns()
{
    static const std::vector<std::regex> all = [] {
        std::vector<std::regex> made;
        for (const Form &form : forms())
            made.emplace_back(form.pattern);
        return made;
    }();
    return all;
}

const Form &formOf(const std::string &text)
{
    std::size_t index = 0;
    while (index + 1 < forms().size() && !std::regex_match(text, patterns()[index]))
        ++index;
    return forms()[index];
}

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
        constexpr Step steps[] = {&Mutation::setEdge, &Mutation::setEdge, &Mutation::setEdge,
            &Mutation::setEdge, &Mutation::copyText, &Mutation::copyText, &Mutation::mutateText,
            &Mutation::mutateText, &Mutation::repeat, &Mutation::repeat, &Mutation::remove,
            &Mutation::damage};
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

    static std::string textOf(xmlNode *node)
    {
        const std::unique_ptr<xmlChar, decltype(xmlFree)> text(xmlNodeGetContent(node), xmlFree);
        return reinterpret_cast<const char *>(text.get());
    }

    void setEdge(xmlNode *)
    {
        xmlNode *node = anyLeaf();
        constexpr std::size_t longestOfForm = 64;
        const std::string text = textOf(node).substr(0, longestOfForm);
        const auto &edges = formOf(text).edges;
        setText(node, edges[below(edges.size())]);
    }

    /// That of another element of the name, where there is one.
    void copyText(xmlNode *)
    {
        xmlNode *node = anyLeaf();
        for (xmlNode *other : m_elements)
            if (other != node && xmlStrEqual(other->name, node->name) && below(2) == 0) {
                setText(node, textOf(other));
                return;
            }
        mutateText(node);
    }

    void mutateText(xmlNode *)
    {
        constexpr std::size_t longest = 256;
        xmlNode *node = anyLeaf();
        std::string text = textOf(node);
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
        if (!target->parent || target->parent->type != XML_ELEMENT_NODE)
            return;
        for (const xmlNode *above = target; above; above = above->parent)
            if (above == node)
                return;
        xmlUnlinkNode(node);
        xmlAddNextSibling(target, node);
    }

    /// What hardly any schema takes.
    void damage(xmlNode *node)
    {
        if (below(2) == 0)
            move(node);
        else
            rename(node);
    }

    void rename(xmlNode *node) { xmlNodeSetName(node, any()->name); }

    const Elements &m_elements;
    std::mt19937 m_random;
};

} // namespace

std::size_t mutateXml(std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    // Its entities would be expanded here, which takes as long as it was meant to.
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    if (bytes.find("<!DOCTYPE") != std::string_view::npos)
        return 0;
    const Document document(
        xmlReadMemory(reinterpret_cast<const char *>(data), static_cast<int>(size), "input",
            "UTF-8", XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING),
        xmlFreeDoc);
    if (!document)
        return 0;
    Elements elements;
    collect(xmlDocGetRootElement(document.get()), elements);
    Mutation(elements, seed).apply();
    xmlChar *dumped = nullptr;
    int count = 0;
    xmlDocDumpMemory(document.get(), &dumped, &count);
    const std::unique_ptr<xmlChar, decltype(xmlFree)> owned(dumped, xmlFree);
    if (!dumped || static_cast<std::size_t>(count) > greatest)
        return 0;
    std::memcpy(data, dumped, static_cast<std::size_t>(count));
    return static_cast<std::size_t>(count);
}

} // namespace fuzz

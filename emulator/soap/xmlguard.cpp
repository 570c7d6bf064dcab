#include "emulator/soap/xmlguard.h"

#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int greatestDepth = 256;
constexpr int greatestAttributes = 256;
constexpr int greatestNamespaces = 64;
constexpr int greatestMarkup = 1'000'000;
constexpr std::string_view namespaceMark = "xmlns";

/// What stands between "<" and ">".
struct Tag
{
    std::size_t end = 0; ///< behind ">"
    int attributes = 0;
    int namespaces = 0;
    bool isClosed = false; ///< "<a/>"
};

/// Behind the next `mark`, or the end of the text.
std::size_t behind(std::string_view text, std::size_t from, std::string_view mark)
{
    const std::size_t found = text.find(mark, from);
    return found == std::string_view::npos ? text.size() : found + mark.size();
}

Tag readTag(std::string_view text, std::size_t from)
{
    Tag tag;
    char quote = 0;
    std::size_t place = from;
    for (; place < text.size(); ++place) {
        const char c = text[place];
        if (quote)
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (c == '=')
            ++tag.attributes;
        else if (c == namespaceMark.front() && text.substr(place).starts_with(namespaceMark))
            ++tag.namespaces;
        else if (c == '>')
            break;
    }
    tag.isClosed = place > from && text[place - 1] == '/';
    tag.end = place + 1;
    return tag;
}

class Scan
{
public:
    explicit Scan(std::string_view text)
        : m_text(text)
    { }

    QString complaint()
    {
        while (m_problem.isEmpty() && m_place < m_text.size()) {
            m_place = m_text.find('<', m_place);
            if (m_place == std::string_view::npos)
                break;
            step();
        }
        return m_problem;
    }

private:
    bool at(std::string_view mark) const { return m_text.substr(m_place).starts_with(mark); }

    void step()
    {
        count(1);
        if (at("<!--"))
            m_place = behind(m_text, m_place, "-->");
        else if (at("<![CDATA["))
            m_place = behind(m_text, m_place, "]]>");
        else if (at("<?"))
            m_place = behind(m_text, m_place, "?>");
        else if (at("<!"))
            m_problem = u"the request has a DOCTYPE, which is not accepted"_s;
        else if (at("</"))
            endTag();
        else
            startTag();
    }

    void endTag()
    {
        --m_depth;
        m_place = behind(m_text, m_place, ">");
    }

    void startTag()
    {
        const Tag tag = readTag(m_text, m_place + 1);
        count(tag.attributes);
        m_namespaces += tag.namespaces;
        if (tag.attributes > greatestAttributes)
            m_problem = u"an element has more than %1 attributes"_s.arg(greatestAttributes);
        else if (m_namespaces > greatestNamespaces)
            m_problem = u"more than %1 namespaces are declared"_s.arg(greatestNamespaces);
        else if (m_depth == greatestDepth)
            m_problem = u"the elements are nested deeper than %1"_s.arg(greatestDepth);
        if (!tag.isClosed)
            ++m_depth;
        m_place = tag.end;
    }

    void count(int markup)
    {
        m_markup += markup;
        if (m_markup > greatestMarkup)
            m_problem
                = u"there are more than %1 tags, comments and attributes"_s.arg(greatestMarkup);
    }

    std::string_view m_text;
    std::size_t m_place = 0;
    int m_markup = 0;
    int m_namespaces = 0;
    int m_depth = 0;
    QString m_problem;
};

} // namespace

QString complaintAboutXml(const QByteArray &bytes)
{
    return Scan({bytes.constData(), static_cast<std::size_t>(bytes.size())}).complaint();
}

} // namespace emulator

#include "till/wire/readablemarkup.h"

#include <QByteArrayView>

#include <algorithm>
#include <array>

namespace till {

namespace {

// The service's own elements have five at most.
constexpr int mostAttributes = 64;
// Its deepest have ten levels; a tree takes a time to build that grows with the square of them.
constexpr int mostLevels = 256;
constexpr qsizetype longestDeclaration = 200; // bytes

constexpr std::array<QByteArrayView, 5> asciiEncodings{
    "utf-8", "us-ascii", "windows-", "iso-8859-", "koi8-"};

// Without a declaration it is UTF-8, unless zero bytes show something else.
bool isAsciiBased(const QByteArray &xml)
{
    if (xml.contains('\0'))
        return false;
    const QByteArray beginning = xml.left(longestDeclaration).toLower();
    const QByteArray declaration = beginning.left(beginning.indexOf("?>"));
    const qsizetype named = declaration.indexOf("encoding");
    if (named < 0)
        return true;
    const qsizetype quote = declaration.indexOf('=', named);
    const QByteArray name = declaration.mid(quote + 1).trimmed().mid(1);
    return quote > 0
        && std::any_of(asciiEncodings.begin(), asciiEncodings.end(),
            [&name](QByteArrayView encoding) { return name.startsWith(encoding); });
}

/// Walks through the markup of a message.
class MarkupWalk
{
public:
    explicit MarkupWalk(const QByteArray &xml)
        : m_xml(xml)
    { }

    /// Whether everything from here to the end can be read.
    bool toEnd()
    {
        while ((m_place = m_xml.indexOf('<', m_place)) >= 0)
            if (!pastMarkup())
                return false;
        return true;
    }

private:
    bool pastMarkup()
    {
        if (at("<!--"))
            return past("-->");
        if (at("<![CDATA["))
            return past("]]>");
        if (at("<?"))
            return past("?>");
        return !at("<!") && pastElement();
    }

    [[nodiscard]] bool at(QByteArrayView text) const
    {
        return QByteArrayView(m_xml).sliced(m_place).startsWith(text);
    }

    // What has no end is no XML, and ends the reading there.
    bool past(QByteArrayView end)
    {
        const qsizetype found = m_xml.indexOf(end, m_place);
        m_place = found < 0 ? m_xml.size() : found + end.size();
        return true;
    }

    bool pastElement()
    {
        const bool closes = at("</");
        int attributes = 0;
        while (++m_place < m_xml.size() && m_xml.at(m_place) != '>') {
            const char sign = m_xml.at(m_place);
            if (sign == '=' && ++attributes > mostAttributes)
                return false;
            if (sign != '"' && sign != '\'')
                continue;
            m_place = m_xml.indexOf(sign, m_place + 1);
            if (m_place < 0)
                m_place = m_xml.size();
        }
        if (closes)
            --m_level;
        else if (m_place < m_xml.size() && m_xml.at(m_place - 1) != '/')
            ++m_level;
        return m_level <= mostLevels;
    }

    const QByteArray &m_xml;
    qsizetype m_place = 0;
    int m_level = 0; ///< of the elements around the place
};

} // namespace

bool isReadableMarkup(const QByteArray &xml)
{
    return isAsciiBased(xml) && MarkupWalk(xml).toEnd();
}

} // namespace till

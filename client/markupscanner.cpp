#include "client/markupscanner.h"

#include "client/answerguard.h"

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

bool isQuote(char character)
{
    return character == '"' || character == '\'';
}

} // namespace

MarkupScanner::MarkupScanner(QByteArrayView markup)
    : m_markup(markup)
{ }

std::optional<QString> MarkupScanner::scan()
{
    while ((m_position = m_markup.indexOf('<', m_next)) >= 0) {
        m_next = m_position;
        if (const auto refusal = scanConstruct())
            return refusal;
    }
    return std::nullopt;
}

std::optional<QString> MarkupScanner::scanConstruct()
{
    if (startsWith("<!--"))
        skipBehind("<!--", "-->");
    else if (startsWith("<![CDATA["))
        skipBehind("<![CDATA[", "]]>");
    else if (startsWith("<?"))
        skipBehind("<?", "?>");
    else if (startsWith("<!DOCTYPE"))
        return scanDocumentType();
    else if (startsWith("</")) {
        skipBehind("</", ">");
        --m_depth;
    } else
        return scanOpeningTag();
    return std::nullopt;
}

std::optional<QString> MarkupScanner::scanOpeningTag()
{
    if (++m_elements > answerlimits::elements)
        return u"More than %1 elements."_s.arg(answerlimits::elements);
    if (++m_depth > answerlimits::depth)
        return u"Elements are nested deeper than %1."_s.arg(answerlimits::depth);
    int attributes = 0;
    while (!atEnd() && next() != '>') {
        if (next() == '=' && ++attributes > answerlimits::attributes)
            return u"More than %1 attributes on one element."_s.arg(answerlimits::attributes);
        skipCharacterOrQuoted();
    }
    if (m_markup.at(m_next - 1) == '/')
        --m_depth;
    return std::nullopt;
}

std::optional<QString> MarkupScanner::scanDocumentType()
{
    while (!atEnd() && next() != '>') {
        if (next() != '[')
            skipCharacterOrQuoted();
        else if (const auto refusal = scanSubset())
            return refusal;
    }
    return std::nullopt;
}

/// The declarations in the brackets of a document type. They have no brackets of their own.
std::optional<QString> MarkupScanner::scanSubset()
{
    while (!atEnd() && next() != ']') {
        if (startsWith("<!--")) {
            skipBehind("<!--", "-->");
        } else if (startsWith("<?")) {
            skipBehind("<?", "?>");
        } else if (startsWith("<!ENTITY")) {
            m_position = m_next;
            return u"The document type defines entities."_s;
        } else {
            skipCharacterOrQuoted();
        }
    }
    return std::nullopt;
}

bool MarkupScanner::startsWith(QByteArrayView text) const
{
    return m_markup.sliced(m_next).startsWith(text);
}

void MarkupScanner::skipBehind(QByteArrayView opening, QByteArrayView closing)
{
    const qsizetype end = m_markup.indexOf(closing, m_next + opening.size());
    m_next = end < 0 ? m_markup.size() : end + closing.size();
}

/// Over the next character; when that is a quote, over everything up to its counterpart as well.
void MarkupScanner::skipCharacterOrQuoted()
{
    if (isQuote(next())) {
        const qsizetype end = m_markup.indexOf(next(), m_next + 1);
        m_next = end < 0 ? m_markup.size() : end + 1;
    } else {
        ++m_next;
    }
}

} // namespace korvelLoyaltyOnline

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
    while (!atEnd()) {
        skipText();
        if (auto refusal = scanConstruct())
            return refusal;
        if (m_nodes > answerlimits::nodes)
            return u"More than %1 nodes."_s.arg(answerlimits::nodes);
        if (m_references > answerlimits::references)
            return u"More than %1 references."_s.arg(answerlimits::references);
    }
    return std::nullopt;
}

/// Up to the next bracket. Where a document type may have its declarations elsewhere, the reader
/// makes a node of each reference to what it does not know.
void MarkupScanner::skipText()
{
    const qsizetype bracket = m_markup.indexOf('<', m_next);
    const qsizetype before = m_references;
    const qsizetype begin = m_next;
    m_position = bracket == -1 ? m_markup.size() : bracket;
    m_next = m_position;
    countReferences(begin);
    if (m_hasDocumentType)
        m_nodes += m_references - before;
}

/// What was passed over since then.
void MarkupScanner::countReferences(qsizetype from)
{
    m_references += m_markup.sliced(from, m_next - from).count('&');
}

std::optional<QString> MarkupScanner::scanConstruct()
{
    if (atEnd())
        return std::nullopt;
    if (startsWith("<!DOCTYPE"))
        return scanDocumentType();
    if (startsWith("</")) {
        skipBehind("</", ">");
        --m_depth;
        return std::nullopt;
    }
    ++m_nodes;
    if (startsWith("<!--"))
        skipBehind("<!--", "-->");
    else if (startsWith("<![CDATA["))
        skipBehind("<![CDATA[", "]]>");
    else if (startsWith("<?"))
        skipBehind("<?", "?>");
    else
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
    const qsizetype begin = m_next;
    while (!atEnd() && next() != '>') {
        if (next() == '=' && ++attributes > answerlimits::attributes)
            return u"More than %1 attributes on one element."_s.arg(answerlimits::attributes);
        skipCharacterOrQuoted();
    }
    countReferences(begin);
    m_nodes += answerlimits::nodesPerAttribute * attributes;
    if (m_markup.at(m_next - 1) == '/')
        --m_depth;
    return std::nullopt;
}

std::optional<QString> MarkupScanner::scanDocumentType()
{
    m_hasDocumentType = true;
    while (!atEnd() && next() != '>') {
        if (next() != '[')
            skipCharacterOrQuoted();
        else if (auto refusal = scanSubset())
            return refusal;
        if (m_next - m_position > answerlimits::documentType)
            return u"The document type is longer than %1 characters."_s.arg(
                answerlimits::documentType);
    }
    return std::nullopt;
}

/// The declarations in the brackets of a document type. They have no brackets of their own. Ends
/// behind what makes the document type too long.
std::optional<QString> MarkupScanner::scanSubset()
{
    while (!atEnd() && next() != ']' && m_next - m_position <= answerlimits::documentType) {
        if (startsWith("<!--")) {
            skipBehind("<!--", "-->");
        } else if (startsWith("<?")) {
            skipBehind("<?", "?>");
        } else if (const char *refused = refusedDeclaration()) {
            m_position = m_next;
            return u"The document type declares %1."_s.arg(QLatin1StringView(refused));
        } else {
            skipCharacterOrQuoted();
        }
    }
    return std::nullopt;
}

/// What is declared next, when the reader would multiply or collect it; null otherwise.
const char *MarkupScanner::refusedDeclaration() const
{
    if (startsWith("<!ENTITY"))
        return "entities";
    if (startsWith("<!ATTLIST"))
        return "attributes";
    return startsWith("<!NOTATION") ? "notations" : nullptr;
}

bool MarkupScanner::startsWith(QByteArrayView text) const
{
    return m_markup.sliced(m_next).startsWith(text);
}

void MarkupScanner::skipBehind(QByteArrayView opening, QByteArrayView closing)
{
    const qsizetype end = m_markup.indexOf(closing, m_next + opening.size());
    m_next = end == -1 ? m_markup.size() : end + closing.size();
}

/// Over the next character; when that is a quote, over everything up to its counterpart as well.
void MarkupScanner::skipCharacterOrQuoted()
{
    if (isQuote(next())) {
        const qsizetype end = m_markup.indexOf(next(), m_next + 1);
        m_next = end == -1 ? m_markup.size() : end + 1;
    } else {
        ++m_next;
    }
}

} // namespace korvelLoyaltyOnline

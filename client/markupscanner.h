#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace korvelLoyaltyOnline {

/// Walks over the tags of a document without building anything, and stops at the first that is
/// beyond the limits of an answer.
///
/// Comments, CDATA sections, processing instructions and quoted values may hold anything. On a
/// document that is not well-formed it sees the same tags as the reader up to the reader's error.
class MarkupScanner
{
public:
    /// @param markup one byte per character; what is not ASCII may be any byte above it. Must
    ///               outlive the scanner.
    explicit MarkupScanner(QByteArrayView markup);

    /// What is refused, with `position()` at its beginning; nothing when all tags were seen.
    std::optional<QString> scan();
    [[nodiscard]] qsizetype position() const { return m_position; }

private:
    void skipText();
    void countReferences(qsizetype from);
    std::optional<QString> scanConstruct();
    std::optional<QString> scanOpeningTag();
    std::optional<QString> scanDocumentType();
    std::optional<QString> scanSubset();
    [[nodiscard]] const char *refusedDeclaration() const;
    [[nodiscard]] bool startsWith(QByteArrayView text) const;
    void skipBehind(QByteArrayView opening, QByteArrayView closing);
    void skipCharacterOrQuoted();
    [[nodiscard]] bool atEnd() const { return m_next >= m_markup.size(); }
    [[nodiscard]] char next() const { return m_markup.at(m_next); }

    QByteArrayView m_markup;
    qsizetype m_position = 0; ///< beginning of the construct in hand
    qsizetype m_next = 0; ///< first character that is not scanned yet
    int m_depth = 0;
    int m_elements = 0;
    qsizetype m_references = 0;
    qsizetype m_nodes = 0; ///< what was seen, as `answerlimits::nodes` counts it
    bool m_hasDocumentType = false;
};

} // namespace korvelLoyaltyOnline

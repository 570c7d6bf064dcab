#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// A look at an answer's bytes before they are parsed.
///
/// The DOM reader builds whatever it is given: a few kilobytes of nested or multiplied markup crash
/// it, keep the till busy for minutes or fill its memory. No honest answer looks like that, so such
/// answers are refused as if they were no XML at all. Everything else passes, well-formed or not:
/// judging that is the reader's part.
namespace korvelLoyaltyOnline {

namespace answerlimits {
inline constexpr int depth = 256; ///< levels of elements, the root being the first
inline constexpr int attributes = 256; ///< on one element
inline constexpr int elements = 200'000;
/// Elements, comments, sections and instructions together, and what attributes count for. So many
/// take the reader some 120 MiB and a quarter of a second. An answer with as many elements as are
/// allowed may still have the attributes of an envelope.
inline constexpr int nodes = 240'000;
/// The first attribute of an element takes as much memory as five elements, each further one as
/// one.
inline constexpr qsizetype nodesPerAttribute = 4;
/// In texts and values. The reader takes longer for one than for any other character.
inline constexpr qsizetype references = 1'000'000;
inline constexpr int documentType = 64 * 1024; ///< characters of its declaration
} // namespace answerlimits

/// Why and where an answer cannot be read. Lines and columns count from 1, columns in UTF-16 units
/// whatever the answer's encoding, as the reader counts them.
struct AnswerDefect
{
    int line = 0;
    int column = 0;
    QString text;
};

/// Refuses what is beyond a limit above, a document type that declares entities, attributes or
/// notations, and encodings other than UTF-8, UTF-16, windows-1251 and ISO-8859-1, or others than
/// the bytes are in. Takes time linear in the answer's length.
[[nodiscard]] std::optional<AnswerDefect> findDefect(const QByteArray &answer);

} // namespace korvelLoyaltyOnline

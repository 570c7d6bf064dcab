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
/// Elements, comments, sections and instructions together, and what attributes count for. So many
/// take the reader about 100 MiB and a fifth of a second.
inline constexpr int nodes = 200'000;
/// The first attribute of an element takes as much memory as five elements, each further one as
/// one.
inline constexpr qsizetype nodesPerAttribute = 4;
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

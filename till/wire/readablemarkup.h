#pragma once

#include <QByteArray>

namespace till {

/// Whether XML that somebody else has made can be read in a time that grows with its length.
///
/// Not so: elements with a great many attributes, which even a reader that only walks through takes
/// minutes for, hundreds of elements inside each other, declarations of a document's own, which
/// grow when they are read, and encodings whose signs are not those of ASCII, in which both could
/// hide. No message of the service has any of it. Says nothing about whether the XML is sound.
/// Needs no memory, and one pass.
[[nodiscard]] bool isReadableMarkup(const QByteArray &xml);

} // namespace till

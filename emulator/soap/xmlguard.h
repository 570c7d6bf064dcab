#pragma once

#include <QByteArray>
#include <QString>

namespace emulator {

/// Why the XML parser must not see these bytes; empty when it may. Looked for in UTF-8, without
/// understanding more than where tags begin and end:
/// - a DOCTYPE, whose entities could grow without bound;
/// - elements nested deeper than 256, of which the validator keeps a stack;
/// - more than 256 attributes on one element: the parser compares each with all others;
/// - more than 64 namespace declarations altogether: the parser looks each prefix up among those in
///   force, which can take hours for a message of 16 MiB;
/// - more than a million tags, comments, instructions and attributes together: each takes the
/// parser
///   some hundred bytes. A cheque of forty thousand positions has fewer.
/// Whether the bytes are XML at all is left to the parser.
QString complaintAboutXml(const QByteArray &bytes);

} // namespace emulator

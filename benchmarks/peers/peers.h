#pragma once

#include "common/host/documents.h"

#include <QByteArray>
#include <QMap>
#include <QVariant>

/// The client's two jobs done by others, as well as they can: generated code of a SOAP toolkit, and
/// a parser without Qt. Answers must be such as the schema says, requests are sales without what a
/// sample cheque does not have.
namespace peers {

/// The result map of a cheque answer, the same as the client's.
/// @throws std::runtime_error when the answer cannot be read.
[[nodiscard]] QMap<QString, QVariant> readByToolkit(const QByteArray &answer);
[[nodiscard]] QMap<QString, QVariant> readByParser(const QByteArray &answer);

/// The bytes of a calculation.
[[nodiscard]] QByteArray composeByToolkit(const AbstractDocument &document);
[[nodiscard]] QByteArray composeByParser(const AbstractDocument &document);

} // namespace peers

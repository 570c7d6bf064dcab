#pragma once

#include <QByteArray>

namespace faults {

/// Whether a request, or an answer with a length, has come to its end.
bool isWhole(const QByteArray &message);
/// What stands behind the head.
QByteArray bodyOf(const QByteArray &message);
/// The head with the blank line behind it.
QByteArray headOf(const QByteArray &message);
/// An answer with that status line ("200 OK"), in XML.
QByteArray httpAnswer(
    const QByteArray &status, const QByteArray &body, const QByteArray &furtherHeaders = {});

} // namespace faults

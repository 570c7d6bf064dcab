#pragma once

#include <QByteArray>

namespace fuzz {

/// Whether a strict parser, another than the one that composes requests, takes the bytes for XML.
[[nodiscard]] bool isWellFormed(const QByteArray &xml);

} // namespace fuzz

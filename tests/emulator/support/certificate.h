#pragma once

#include <QDir>
#include <QStringList>

namespace emulator {

/// A certificate for 127.0.0.1 and its key, made in the folder: the options that name them.
QStringList givenCertificate(const QDir &folder);

} // namespace emulator

#pragma once

#include "emulator/data/jsonvalue.h"
#include "emulator/data/servicedata.h"

#include <QByteArray>
#include <QString>

namespace emulator {

/// Reads the data file: JSON in UTF-8, comments allowed. Throws DataError with line and column
/// for wrong syntax, otherwise with the JSON pointer and what was expected there.
ServiceData readServiceData(const QByteArray &json);

/// The same from a file; the error names the file.
ServiceData readServiceDataFile(const QString &path);

/// The sample data that is built in.
ServiceData sampleServiceData();

} // namespace emulator

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator {

/// The files of protocol/samples.
QStringList sampleNames();
QByteArray sample(const char *name);

/// "" when the message fits the schema files of protocol/, otherwise the validator's complaint.
QString complaintOfSchemaFiles(const QByteArray &xml);

} // namespace emulator

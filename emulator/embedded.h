#pragma once

#include <QByteArray>

/// Files of the tree that are built into the program, so that it needs none beside it.
namespace emulator::embedded {

const char *version();

QByteArray sampleData(); ///< config/service.json
QByteArray loyaltySchema(); ///< protocol/loyalty.xsd
QByteArray consolePage(); ///< emulator/console/console.html
QByteArray consoleStyle(); ///< emulator/console/console.css
QByteArray consoleScript(); ///< emulator/console/console.js
QByteArray envelopeSchema(); ///< protocol/soap-envelope.xsd
QByteArray serviceDescription(); ///< protocol/loyalty.wsdl

} // namespace emulator::embedded

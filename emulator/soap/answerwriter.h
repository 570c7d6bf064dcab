#pragma once

#include "emulator/soap/answer.h"

#include <QByteArray>
#include <QString>

namespace emulator {

/// Whole SOAP messages in UTF-8. Elements of the cheque stand before its items: a till reads the
/// first element of a name in the whole answer.
QByteArray writeAnswer(const BalanceAnswer &answer);
QByteArray writeAnswer(const ChequeAnswer &answer);
QByteArray writeAnswer(const Answer &answer);

enum class FaultOrigin
{
    Client, ///< the request was wrong
    Server ///< the service could not do its part
};

QByteArray writeFault(FaultOrigin origin, const QString &message);

} // namespace emulator

#pragma once

#include "common/host/framework.h"

/// An error that the loyalty service or one of the plug-in's own checks reports: the message is for
/// the cashier, and the operation is refused.
class KorvelException : public BasicException
{
public:
    explicit KorvelException(const tr::Tr &message)
        : BasicException(message)
    { }
};

/// The service could not be reached: the cheque goes on offline.
class KorvelNoConnectionException : public KorvelException
{
public:
    explicit KorvelNoConnectionException(const tr::Tr &message)
        : KorvelException(message)
    { }
};

/// The service answered with an internal error. Derived from the lost connection on purpose: who
/// handles that handles this too, and who must tell them apart catches this one first.
class KorvelInternalErrorException : public KorvelNoConnectionException
{
public:
    explicit KorvelInternalErrorException(const tr::Tr &message)
        : KorvelNoConnectionException(message)
    { }
};

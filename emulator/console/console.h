#pragma once

#include "emulator/http/message.h"

namespace emulator {

/// The page for people at "/console". It has all that it needs in itself, reads the API, and
/// changes things with a token that only it was given.
class Console
{
public:
    Console();

    /// New with every start of the service.
    QByteArray token() const { return m_token; }

    HttpReply page() const;

private:
    const QByteArray m_token;
};

} // namespace emulator

#pragma once

#include "till/accept/answer.h"
#include "till/accept/options.h"

#include <QByteArray>

namespace till::accept {

/// The service that is looked at, over HTTP.
class Service
{
public:
    explicit Service(Access access);

    enum class Credentials
    {
        Right,
        Wrong
    };

    /// Sends a request and waits for what comes of it. Never throws.
    [[nodiscard]] Answer ask(
        const QByteArray &request, Credentials credentials = Credentials::Right) const;

private:
    Access m_access;
};

} // namespace till::accept

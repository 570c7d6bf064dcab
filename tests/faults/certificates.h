#pragma once

#include <QString>
#include <QTemporaryDir>

#include <openssl/ssl.h>

#include <memory>

namespace faults {

/// What the service shows of itself.
enum class Identity
{
    Right,
    WrongName, ///< made out to another name
    Expired,
    UnknownAuthority
};

/// An authority that the till trusts, and what it, or another one, has signed for the service. Made
/// anew with the object.
class Certificates
{
public:
    /// @throws std::runtime_error when they cannot be made.
    Certificates();

    /// The authority's certificate, PEM.
    [[nodiscard]] QString authorityFile() const;
    /// What a server that shows this identity works with; lives as long as the object.
    [[nodiscard]] SSL_CTX &context(Identity identity) const;

private:
    struct Release
    {
        void operator()(SSL_CTX *context) const { SSL_CTX_free(context); }
    };
    using Context = std::unique_ptr<SSL_CTX, Release>;

    QTemporaryDir m_folder;
    Context m_right;
    Context m_wrongName;
    Context m_expired;
    Context m_unknownAuthority;
};

} // namespace faults

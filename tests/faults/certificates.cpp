#include "tests/faults/certificates.h"

#include "tests/faults/machine/control.h"

#include <QByteArray>
#include <QFile>

#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdio>
#include <stdexcept>

namespace faults {

namespace {

template <auto release> struct Free
{
    template <typename T> void operator()(T *object) const { release(object); }
};
using Key = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using X509Pointer = std::unique_ptr<X509, Free<X509_free>>;
using File = std::unique_ptr<std::FILE, Free<std::fclose>>;

constexpr long hour = 3600;
constexpr auto otherName = "elsewhere.test";

void require(bool done)
{
    if (!done)
        throw std::runtime_error("the certificates cannot be made");
}

void addExtension(X509 &certificate, int id, const QByteArray &value)
{
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, nullptr, id, value.constData());
    require(extension && X509_add_ext(&certificate, extension, -1) == 1);
    X509_EXTENSION_free(extension);
}

void setName(X509_NAME *name, const QByteArray &text)
{
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC,
        reinterpret_cast<const unsigned char *>(text.constData()), static_cast<int>(text.size()),
        -1, 0);
}

/// A certificate with its key.
struct Paper
{
    Key key{EVP_EC_gen("P-256")};
    X509Pointer certificate{X509_new()};
};

// Signed by itself where nobody else is named.
Paper made(const QByteArray &name, long validSeconds, const Paper *authority)
{
    Paper paper;
    X509 *const certificate = paper.certificate.get();
    X509_set_version(certificate, X509_VERSION_3);
    // An authority must not give a number twice.
    ASN1_INTEGER_set(
        X509_get_serialNumber(certificate), static_cast<long>(qHash(name) & 0xffff) + validSeconds);
    X509_gmtime_adj(X509_getm_notBefore(certificate), -2 * hour);
    X509_gmtime_adj(X509_getm_notAfter(certificate), validSeconds);
    X509_set_pubkey(certificate, paper.key.get());
    setName(X509_get_subject_name(certificate), name);
    const Paper &issuer = authority ? *authority : paper;
    X509_set_issuer_name(certificate, X509_get_subject_name(issuer.certificate.get()));
    if (authority)
        addExtension(*certificate, NID_subject_alt_name, "DNS:" + name);
    else
        addExtension(*certificate, NID_basic_constraints, "critical,CA:TRUE");
    require(X509_sign(certificate, issuer.key.get(), EVP_sha256()) > 0);
    return paper;
}

SSL_CTX *contextOf(const Paper &paper)
{
    SSL_CTX *const context = SSL_CTX_new(TLS_server_method());
    require(context && SSL_CTX_use_certificate(context, paper.certificate.get()) == 1
        && SSL_CTX_use_PrivateKey(context, paper.key.get()) == 1);
    return context;
}

} // namespace

Certificates::Certificates()
{
    const Paper authority = made("Authority", hour, nullptr);
    const Paper stranger = made("Stranger", hour, nullptr);
    m_right.reset(contextOf(made(serviceName, hour, &authority)));
    m_wrongName.reset(contextOf(made(otherName, hour, &authority)));
    m_expired.reset(contextOf(made(serviceName, -hour, &authority)));
    m_unknownAuthority.reset(contextOf(made(serviceName, hour, &stranger)));
    const File file(std::fopen(QFile::encodeName(authorityFile()).constData(), "w"));
    require(file && PEM_write_X509(file.get(), authority.certificate.get()) == 1);
}

QString Certificates::authorityFile() const
{
    return m_folder.filePath(QStringLiteral("authority.pem"));
}

SSL_CTX &Certificates::context(Identity identity) const
{
    switch (identity) {
    case Identity::Right:
        break;
    case Identity::WrongName:
        return *m_wrongName;
    case Identity::Expired:
        return *m_expired;
    case Identity::UnknownAuthority:
        return *m_unknownAuthority;
    }
    return *m_right;
}

} // namespace faults

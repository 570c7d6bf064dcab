#include "host/net/certificate.h"

#include <openssl/err.h>
#include <openssl/pem.h>
#include <openssl/x509.h>

#include <ctime>
#include <memory>

namespace certificates {

namespace {

template <auto release> struct Release
{
    template <typename T> void operator()(T *object) const { release(object); }
};
using Source = std::unique_ptr<BIO, Release<BIO_free_all>>;
using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using Read = std::unique_ptr<X509, Release<X509_free>>;

/// What is refused is told by what the functions return; nobody else shall find it at the thread's
/// errors.
class ErrorsForgotten
{
public:
    ErrorsForgotten() = default;
    ~ErrorsForgotten() { ERR_clear_error(); }
    Q_DISABLE_COPY_MOVE(ErrorsForgotten)
};

Source source(const QByteArray &pem)
{
    return Source(BIO_new_mem_buf(pem.constData(), static_cast<int>(pem.size())));
}

// Without it the library would ask for a password at the terminal.
int noPassword(char *, int, int, void *)
{
    return 0;
}

Read nextCertificate(BIO *pem)
{
    return Read(PEM_read_bio_X509(pem, nullptr, noPassword, nullptr));
}

QString entryText(const X509_NAME *name, int index)
{
    const ASN1_STRING *const value = X509_NAME_ENTRY_get_data(X509_NAME_get_entry(name, index));
    unsigned char *text = nullptr;
    const int length = ASN1_STRING_to_UTF8(&text, value);
    if (length < 0)
        return {};
    QString result = QString::fromUtf8(reinterpret_cast<const char *>(text), length);
    OPENSSL_free(text);
    return result;
}

QString nameOf(const X509 &certificate)
{
    const X509_NAME *const name = X509_get_subject_name(&certificate);
    if (const int index = X509_NAME_get_index_by_NID(name, NID_commonName, -1); index >= 0)
        return entryText(name, index);
    QStringList parts;
    for (int index = 0; index < X509_NAME_entry_count(name); ++index)
        parts.append(entryText(name, index));
    return parts.join(QStringLiteral(", "));
}

QDateTime timeOf(const ASN1_TIME *time)
{
    std::tm parts{};
    if (ASN1_TIME_to_tm(time, &parts) != 1)
        return {};
    return QDateTime::fromSecsSinceEpoch(::timegm(&parts), Qt::UTC);
}

} // namespace

QList<Certificate> in(const QByteArray &pem)
{
    const ErrorsForgotten guard;
    const Source text = source(pem);
    QList<Certificate> found;
    while (const Read certificate = nextCertificate(text.get()))
        found.append({nameOf(*certificate), timeOf(X509_get0_notBefore(certificate.get())),
            timeOf(X509_get0_notAfter(certificate.get()))});
    return found;
}

KeyMatch match(const QByteArray &key, const QByteArray &certificate)
{
    const ErrorsForgotten guard;
    const Key own(PEM_read_bio_PrivateKey(source(key).get(), nullptr, noPassword, nullptr));
    const Read first = nextCertificate(source(certificate).get());
    if (!own)
        return KeyMatch::NoKey;
    return first && X509_check_private_key(first.get(), own.get()) == 1 ? KeyMatch::Fits
                                                                        : KeyMatch::Differs;
}

} // namespace certificates

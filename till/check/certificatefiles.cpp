#include "host/net/certificate.h"
#include "till/check/rules.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString certificate = u"RestClient:clientCert"_s;
const QString key = u"RestClient:clientKey"_s;

// What is not there was told with the values.
QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return !path.isEmpty() && file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Findings judgeFile(const Effective &effective, const QString &name, const QDateTime &now)
{
    const QString path = effective.path(name);
    const QByteArray pem = contentsOf(path);
    if (pem.isEmpty())
        return {};
    const QList<Certificate> held = certificates::in(pem);
    if (held.isEmpty())
        return {effective.finding(Severity::Error, name,
            tr::Tr(u"checkNoCertificate"_s, u"в файле %1 нет сертификата PEM"_s).arg(path),
            {u"checkConvert"_s, u"переведите его в PEM: openssl x509 -in ФАЙЛ -outform pem"_s})};
    Findings found;
    for (const Certificate &one : held)
        found.append(
            judgeEnd(one.subject, one.ends, now, Area::Configuration, effective.place(name)));
    return found;
}

Findings judgePair(const Effective &effective)
{
    using certificates::KeyMatch;
    const QByteArray shown = contentsOf(effective.path(certificate));
    const bool isApart = !effective.text(key).isEmpty();
    if (certificates::in(shown).isEmpty())
        return {};
    switch (certificates::match(isApart ? contentsOf(effective.path(key)) : shown, shown)) {
    case KeyMatch::Fits:
        break;
    case KeyMatch::Differs:
        return {effective.finding(Severity::Error, isApart ? key : certificate,
            {u"checkKeyDiffers"_s, u"ключ от другого сертификата"_s},
            {u"checkMatchKey"_s, u"возьмите ключ, с которым заказан сертификат"_s})};
    case KeyMatch::NoKey:
        return {effective.finding(Severity::Error, isApart ? key : certificate,
            {u"checkKeyMissing"_s, u"нет ключа PEM, который читается без пароля"_s},
            {u"checkSetKey"_s, u"задайте в RestClient:clientKey файл с ключом без пароля"_s})};
    }
    return {};
}

} // namespace

Findings judgeEnd(const QString &shown, const QDateTime &ends, const QDateTime &now, Area area,
    const Place &place)
{
    constexpr int shortTime = 30;
    const qint64 days = now.daysTo(ends);
    const tr::Tr remedy{u"checkRenew"_s, u"закажите новый сертификат заранее"_s};
    const QString date = ends.date().toString(Qt::ISODate);
    if (ends <= now)
        return {{Severity::Error, area, place,
            tr::Tr(u"checkCertificateEnded"_s, u"сертификат «%1» истёк %2"_s).arg(shown).arg(date),
            remedy}};
    if (days <= shortTime)
        return {{Severity::Warning, area, place,
            tr::Tr(u"checkCertificateEnds"_s, u"сертификат «%1» истекает %2"_s)
                .arg(shown)
                .arg(date),
            remedy}};
    return {};
}

Findings judgeCertificates(const Effective &effective, const QDateTime &now)
{
    return judgeFile(effective, u"RestClient:caFile"_s, now)
        + judgeFile(effective, certificate, now) + judgePair(effective);
}

} // namespace till::check

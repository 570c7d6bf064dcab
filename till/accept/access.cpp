#include "till/accept/access.h"

#include "host/config/config.h"
#include "till/configuration.h"
#include "till/core/cannotdo.h"
#include "till/queue/credentials.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

QString passwordIn(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw CannotDo(
            tr::Tr(u"acceptPasswordFile"_s, u"%1: %2"_s).arg(fileName).arg(file.errorString()),
            {u"acceptPasswordFileRemedy"_s, u"пароль стоит в первой строке файла"_s});
    return QString::fromUtf8(file.readLine()).remove(u'\n');
}

void readSettings(const QString &configFile)
{
    try {
        readConfiguration(configFile);
    } catch (const ConfigError &error) {
        throw CannotDo(
            error.tr(), {u"acceptConfigRemedy"_s, u"исправьте настройки или укажите --url"_s});
    }
}

Access configured()
{
    const auto *config = Singleton<Config>::instance();
    Access access;
    access.url = QUrl(config->getString(u"KorvelLoyaltyOnline:url"_s, {}));
    access.user = config->getString(u"KorvelLoyaltyOnline:user"_s, {});
    access.authorization = configuredAuthorization();
    return access;
}

/// The till's password is for the till's service only.
Access withoutCredentials(const QString &url)
{
    Access access;
    access.url = QUrl(url, QUrl::StrictMode);
    return access;
}

void setCredentials(Access &access, const Options &options)
{
    if (options.user.isEmpty() != options.passwordFile.isEmpty())
        throw CannotDo(
            {u"acceptHalfCredentials"_s, u"указано только одно из --user и --password-file"_s},
            {u"acceptHalfCredentialsRemedy"_s, u"укажите оба или ни одного"_s});
    if (options.user.isEmpty())
        return;
    access.user = options.user;
    access.authorization = basicAuthorization(options.user, passwordIn(options.passwordFile));
}

void requireAddress(const QUrl &url)
{
    const bool isHttp = url.scheme() == u"http" || url.scheme() == u"https";
    if (!url.isValid() || !isHttp || url.host().isEmpty())
        throw CannotDo({u"acceptNoUrl"_s, u"не указан адрес сервиса"_s},
            {u"acceptNoUrlRemedy"_s,
                u"укажите --url http://… или https://…, или --config с настройками кассы"_s});
    if (!url.userInfo().isEmpty())
        throw CannotDo({u"acceptUrlUser"_s, u"в адресе сервиса стоит пользователь"_s},
            {u"acceptUrlUserRemedy"_s, u"укажите --user и --password-file"_s});
}

} // namespace

Access accessOf(const Options &options)
{
    // Beside a URL for how exchanges are done.
    if (options.url.isEmpty() || !options.configFile.isEmpty())
        readSettings(options.configFile);
    Access access = options.url.isEmpty() ? configured() : withoutCredentials(options.url);
    requireAddress(access.url);
    setCredentials(access, options);
    access.timeoutSeconds = options.timeoutSeconds;
    auto *config = Singleton<Config>::instance();
    if (!options.caFile.isEmpty() && !QFile::exists(options.caFile))
        throw CannotDo(tr::Tr(u"acceptCaFile"_s, u"%1: нет такого файла"_s).arg(options.caFile),
            {u"acceptCaFileRemedy"_s, u"укажите сертификаты в формате PEM"_s});
    if (!options.caFile.isEmpty())
        config->set(u"RestClient:caFile"_s, options.caFile);
    // Every exchange is to be tried: what a run finds must not depend on those before.
    config->set(u"RestClient:breakerFailures"_s, u"0"_s);
    return access;
}

QString basicAuthorization(const QString &user, const QString &password)
{
    return u"Basic "_s + QString::fromLatin1((user + u':' + password).toUtf8().toBase64());
}

} // namespace till::accept

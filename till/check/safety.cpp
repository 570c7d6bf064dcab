#include "host/storage/privacy.h"
#include "till/check/rules.h"
#include "till/check/schema.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString fileMark = u"@file:"_s;

bool isOnThisMachine(const QUrl &url)
{
    const QString host = url.host();
    return host == u"localhost"_s || host.startsWith(u"127."_s) || host == u"::1"_s;
}

// Addresses without a scheme are meant as those of http.
bool hasPassword(const QString &address)
{
    const QString http = u"http://"_s;
    return !QUrl(address.contains(u"://"_s) ? address : http + address).password().isEmpty();
}

bool holdsSecret(const Setting &setting, const QString &value)
{
    if (setting.secret == Secret::Value)
        return !value.isEmpty();
    const bool isAddress = setting.secret == Secret::Address || setting.type == ValueType::Url;
    return isAddress && hasPassword(value);
}

/// The file in which the value stands.
QString fileOf(const Written &line)
{
    return line.text.startsWith(fileMark)
        ? QFileInfo(line.file).dir().filePath(line.text.mid(fileMark.size()).trimmed())
        : line.file;
}

Finding readable(const QString &file, const Place &place)
{
    return {Severity::Warning, Area::Configuration, place,
        tr::Tr(u"checkSecretReadable"_s, u"секрет стоит в файле %1, который могут читать другие"_s)
            .arg(file),
        tr::Tr(u"checkTakeRights"_s,
            u"chmod 600 %1; пароль лучше держать в отдельном файле: "
            u"@file:/путь"_s)
            .arg(file)};
}

Findings readableSecrets(const SettingFiles &files, const Effective &effective)
{
    Findings found;
    for (const Written &line : files.lines()) {
        const Setting *setting = Schema::instance().find(line.section, line.key);
        if (!setting)
            continue;
        const bool isFollowed = line.text.startsWith(fileMark);
        const QString value = isFollowed ? effective.text(line.name()) : line.text;
        if (holdsSecret(*setting, value) && !privacy::looseRights({fileOf(line)}).isEmpty())
            found.append(readable(fileOf(line), line.place()));
    }
    return found;
}

Findings readableKey(const Effective &effective)
{
    const QString name = u"RestClient:clientKey"_s;
    const QString file = effective.path(name);
    if (file.isEmpty() || privacy::looseRights({file}).isEmpty())
        return {};
    return {readable(file, effective.place(name))};
}

Findings plainAuthorisation(const Effective &effective)
{
    const QString name = u"KorvelLoyaltyOnline:url"_s;
    const QUrl url(effective.text(name));
    const bool hasCredentials = !effective.text(u"KorvelLoyaltyOnline:user"_s).isEmpty()
        || !effective.text(u"KorvelLoyaltyOnline:password"_s).isEmpty();
    if (!hasCredentials || url.scheme() != u"http"_s || isOnThisMachine(url))
        return {};
    return {effective.finding(Severity::Warning, name,
        tr::Tr(u"checkPlainAuthorisation"_s,
            u"пароль и данные покупателей идут до %1 открытым текстом"_s)
            .arg(url.host()),
        {u"checkUseHttps"_s, u"укажите в KorvelLoyaltyOnline:url адрес https://"_s})};
}

} // namespace

Findings judgeSafety(const SettingFiles &files, const Effective &effective)
{
    return readableSecrets(files, effective) + readableKey(effective)
        + plainAuthorisation(effective);
}

} // namespace till::check

#include "till/check/rules.h"

#include <QSet>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString url = u"KorvelLoyaltyOnline:url"_s;
const QString user = u"KorvelLoyaltyOnline:user"_s;
const QString password = u"KorvelLoyaltyOnline:password"_s;
const QString limit = u"KorvelLoyaltyOnline:noConfirmationBonusLimit"_s;
const QString breakerFailures = u"RestClient:breakerFailures"_s;
const QString breakerSeconds = u"RestClient:breakerSeconds"_s;
const QString attributes = u"KorvelLoyaltyOnline.ExtendedAttributes."_s;

Findings breakerThatIsHalfOn(const Effective &effective)
{
    const bool failures = effective.number(breakerFailures) > 0;
    if (failures == (effective.number(breakerSeconds) > 0))
        return {};
    return {effective.finding(Severity::Warning, failures ? breakerFailures : breakerSeconds,
        tr::Tr(u"checkBreakerHalf"_s, u"ничего не меняет без %1"_s)
            .arg(failures ? breakerSeconds : breakerFailures),
        {u"checkSetBoth"_s, u"задайте оба значения больше нуля или уберите оба"_s})};
}

Findings crossedLimits(const Effective &effective)
{
    const QString warning = u"Queue:warnMinutes"_s;
    const QString alarm = u"Queue:alarmMinutes"_s;
    if (effective.number(warning) < effective.number(alarm))
        return {};
    return {effective.finding(Severity::Warning, effective.isSet(warning) ? warning : alarm,
        tr::Tr(u"checkLimitsCrossed"_s,
            u"предупреждение (%1 мин) не наступает раньше тревоги (%2 мин)"_s)
            .arg(effective.text(warning))
            .arg(effective.text(alarm)),
        {u"checkWarnEarlier"_s, u"задайте warnMinutes меньше alarmMinutes"_s})};
}

Findings keyWithoutCertificate(const Effective &effective)
{
    const QString key = u"RestClient:clientKey"_s;
    if (effective.text(key).isEmpty() || !effective.text(u"RestClient:clientCert"_s).isEmpty())
        return {};
    return {effective.finding(Severity::Warning, key,
        {u"checkKeyAlone"_s, u"ключ без сертификата ничего не меняет"_s},
        {u"checkNameCertificate"_s, u"задайте RestClient:clientCert или уберите ключ"_s})};
}

Findings certificatesWithoutTls(const Effective &effective)
{
    Findings found;
    if (QUrl(effective.text(url)).scheme() != u"http"_s)
        return found;
    for (const QString &name : {u"RestClient:caFile"_s, u"RestClient:clientCert"_s})
        if (!effective.text(name).isEmpty())
            found.append(effective.finding(Severity::Warning, name,
                {u"checkTlsUnused"_s, u"ничего не меняет: адрес сервиса начинается с http://"_s},
                {u"checkUseHttps"_s, u"укажите в KorvelLoyaltyOnline:url адрес https://"_s}));
    return found;
}

Findings emptyDelimiter(const Effective &effective)
{
    const QString delimiter = u"KorvelLoyaltyOnline:couponMessageDelimeter"_s;
    if (!effective.text(delimiter).isEmpty())
        return {};
    return {effective.finding(Severity::Warning, delimiter,
        {u"checkDelimiterEmpty"_s,
            u"разделитель пуст: тексты купонов не отделяются от сообщения и не печатаются"_s},
        {u"checkSetDelimiter"_s, u"задайте разделитель сервиса или уберите ключ"_s})};
}

Findings confirmationWithoutCode(const Effective &effective)
{
    constexpr double never = -1;
    const QString confirmation = u"KorvelLoyaltyOnline:useConfirmation"_s;
    const bool isWanted = effective.boolean(confirmation);
    const bool hasLimit = effective.number(limit) > never;
    if (isWanted == hasLimit)
        return {};
    if (isWanted)
        return {effective.finding(Severity::Warning, confirmation,
            tr::Tr(u"checkCodeNeverAsked"_s, u"код не спросят никогда: %1 равно -1"_s).arg(limit),
            tr::Tr(u"checkSetLimit"_s,
                u"задайте %1, 0 спрашивает код всегда, или уберите useConfirmation"_s)
                .arg(limit))};
    return {effective.finding(Severity::Warning, limit,
        tr::Tr(u"checkLimitUnused"_s, u"ничего не меняет без %1"_s).arg(confirmation),
        tr::Tr(u"checkConfirm"_s, u"задайте %1=true или уберите предел"_s).arg(confirmation))};
}

Findings statusesInBothLists(const Effective &effective)
{
    const QString forCashier = u"KorvelLoyaltyOnline:forbiddenCardStatuses"_s;
    const QStringList forCustomer
        = effective.items(u"KorvelLoyaltyOnline:forbiddenCardStatusesForCustomer"_s);
    QStringList both;
    for (const QString &status : effective.items(forCashier))
        if (forCustomer.contains(status))
            both.append(status);
    if (both.isEmpty())
        return {};
    return {effective.finding(Severity::Note, forCashier,
        tr::Tr(u"checkStatusesTwice"_s,
            u"статусы %1 есть и в forbiddenCardStatusesForCustomer: узнает и покупатель"_s)
            .arg(both.join(u", "_s)),
        {u"checkKeepOneStatus"_s, u"оставьте каждый статус в одном списке"_s})};
}

Findings halfOfTheCredentials(const Effective &effective)
{
    const QString name = effective.text(user);
    const bool hasPassword = !effective.text(password).isEmpty();
    Findings found;
    if (name.isEmpty() == hasPassword)
        found.append(effective.finding(Severity::Warning, hasPassword ? password : user,
            tr::Tr(u"checkCredentialsHalf"_s, u"нет %1"_s).arg(hasPassword ? user : password),
            {u"checkSetCredentials"_s, u"задайте пользователя и пароль или уберите оба"_s}));
    if (name.contains(u':'))
        found.append(effective.finding(Severity::Error, user,
            {u"checkUserColon"_s,
                u"в имени двоеточие: сервис примет его остаток за начало пароля"_s},
            {u"checkUserWithoutColon"_s, u"попросите у сервиса имя без двоеточия"_s}));
    // The plug-in puts the password in for such a mark, and services know the user by the result.
    if (name.contains(u"%2"_s))
        found.append(effective.finding(Severity::Warning, user,
            {u"checkUserMark"_s, u"знак %2 в имени заменяется паролем"_s},
            {u"checkUserWithoutMark"_s, u"попросите у сервиса имя без %2"_s}));
    return found;
}

// "key1" belongs to "value1" of the same section.
Findings attributesWithoutPartner(const SettingFiles &files, const Effective &effective)
{
    const QString key = u"key"_s;
    const QString value = u"value"_s;
    Findings found;
    QSet<QString> seen;
    for (const Written &line : files.lines()) {
        if (!line.section.startsWith(attributes) || seen.contains(line.name()))
            continue;
        seen.insert(line.name());
        const bool isKey = line.key.startsWith(key);
        if (!isKey && !line.key.startsWith(value))
            continue;
        const QString partner
            = isKey ? value + line.key.mid(key.size()) : key + line.key.mid(value.size());
        if (effective.text(line.section + u':' + partner).isEmpty())
            found.append(effective.finding(Severity::Warning, line.name(),
                tr::Tr(u"checkAttributeHalf"_s, u"признак не передаётся: нет %1"_s).arg(partner),
                tr::Tr(u"checkSetPartner"_s, u"задайте %1 в той же секции"_s).arg(partner)));
    }
    return found;
}

Findings prefixWithoutPercentage(const Effective &effective)
{
    const QString prefix = u"KorvelLoyaltyOnline:markdownCouponPrefix"_s;
    if (effective.text(prefix).contains(u"%1"_s))
        return {};
    return {effective.finding(Severity::Note, prefix,
        {u"checkPercentageMissing"_s, u"без %1 кассир не видит процента уценки"_s},
        {u"checkPutPercentage"_s, u"поставьте %1 туда, где должен стоять процент"_s})};
}

// Nothing is wrong with it, but whoever looks for the reason why no points come must see it.
Findings loyaltyThatIsOff(const Effective &effective)
{
    const QString loyalty = u"Till:loyalty"_s;
    if (effective.boolean(loyalty))
        return {};
    return {effective.finding(Severity::Note, loyalty,
        {u"checkLoyaltyOff"_s, u"лояльность на этой кассе выключена: чеки идут без баллов"_s},
        {u"checkLoyaltyOn"_s, u"чтобы включить её, уберите ключ или задайте true"_s})};
}

Findings emulatorOfAnotherService(const Effective &effective)
{
    const QString api = u"Till:serviceApi"_s;
    const QUrl emulator(effective.text(api));
    if (emulator.isEmpty() || emulator.authority() == QUrl(effective.text(url)).authority())
        return {};
    return {effective.finding(Severity::Note, api,
        tr::Tr(u"checkApiElsewhere"_s,
            u"команда fault действует на %1, а касса обращается к другому сервису"_s)
            .arg(emulator.host()),
        {u"checkSameService"_s, u"укажите тот же сервис или уберите ключ"_s})};
}

} // namespace

Findings judgeCombinations(const SettingFiles &files, const Effective &effective)
{
    return breakerThatIsHalfOn(effective) + crossedLimits(effective)
        + keyWithoutCertificate(effective) + certificatesWithoutTls(effective)
        + emptyDelimiter(effective) + confirmationWithoutCode(effective)
        + statusesInBothLists(effective) + halfOfTheCredentials(effective)
        + attributesWithoutPartner(files, effective) + prefixWithoutPercentage(effective)
        + loyaltyThatIsOff(effective) + emulatorOfAnotherService(effective);
}

} // namespace till::check

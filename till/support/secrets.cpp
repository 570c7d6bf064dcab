#include "till/support/secrets.h"

#include "host/config/config.h"
#include "till/queue/credentials.h"
#include "till/queue/masks.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

// A shorter one would be found in everything; where it belongs it is masked by its place.
constexpr qsizetype shortestSecret = 4;
const QString stars = u"********"_s;
const QString fileReference = u"@file:"_s;
const QString basic = u"Basic "_s;

bool isSecretName(const QString &name)
{
    static const QRegularExpression pattern(
        u"password|passwd|passphrase|secret|token|credential|authorization|cookie"_s,
        QRegularExpression::CaseInsensitiveOption);
    return pattern.match(name).hasMatch();
}

bool isCodeName(const QString &name)
{
    return name.compare(u"verificationCode", Qt::CaseInsensitive) == 0;
}

// Of an address that a setting, an error or a log line holds.
QString withoutCredentials(QString text)
{
    static const QRegularExpression user(
        u"(\\b[a-z][a-z0-9+.-]*://)[^/?#\\s]*@"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression parameter(
        u"([?&;](?:password|passwd|sslpassword|token)=)[^&\\s\"']*"_s,
        QRegularExpression::CaseInsensitiveOption);
    text.replace(user, u"\\1"_s + stars + u'@');
    return text.replace(parameter, u"\\1"_s + stars);
}

QString withoutHeader(QString text)
{
    static const QRegularExpression header(
        u"((?:Authorization|Cookie)\"?\\s*[:=]\\s*\"?)(?:Basic |Bearer )?[^\\s\",}]+"_s,
        QRegularExpression::CaseInsensitiveOption);
    return text.replace(header, u"\\1"_s + stars);
}

} // namespace

void Secrets::learn(const QString &secret)
{
    if (secret.trimmed().size() < shortestSecret)
        return;
    m_secrets.insert(secret);
    m_secrets.insert(QString::fromLatin1(secret.toUtf8().toBase64()));
    m_secrets.insert(QString::fromLatin1(QUrl::toPercentEncoding(secret)));
}

void Secrets::learnCode(const QString &code)
{
    if (code.trimmed().size() >= shortestSecret)
        m_codes.insert(code.trimmed());
}

// "user:password", the way it is sent.
void Secrets::learnCredentials(const QString &encoded)
{
    const QString value = encoded.startsWith(basic) ? encoded.mid(basic.size()) : encoded;
    const QByteArray decoded = QByteArray::fromBase64(value.toLatin1());
    if (decoded.size() > 1)
        m_secrets.insert(value);
    const qsizetype colon = decoded.indexOf(':');
    if (colon >= 0)
        learn(QString::fromLocal8Bit(decoded.mid(colon + 1)));
}

void Secrets::learnAddress(const QString &address)
{
    static const QRegularExpression pattern(u"://[^/?#\\s:@]*:([^/?#\\s]*)@"_s);
    const QString password = pattern.match(address).captured(1);
    learn(password);
    learn(QUrl::fromPercentEncoding(password.toUtf8()));
}

void Secrets::learnConfiguration()
{
    const auto *const config = Singleton<Config>::instance();
    for (const QString &section : config->getSections(u"*"_s))
        for (const QString &key : config->getKeys(section)) {
            const QString value = config->getString(section + u':' + key, {});
            if (isSecretName(key))
                learn(value);
            learnAddress(value);
        }
    learnCredentials(configuredAuthorization());
}

void Secrets::learnDocument(const QByteArray &json)
{
    static const QRegularExpression code(
        u"\"verificationCode\"\\s*:\\s*(?:\\{[^{}]*?:\\s*)?\"([^\"]*)\""_s,
        QRegularExpression::CaseInsensitiveOption);
    const QString text = QString::fromUtf8(json);
    for (auto match = code.globalMatch(text); match.hasNext();)
        learnCode(match.next().captured(1));
}

void Secrets::learnMessage(const QueueMessage &message)
{
    static const QRegularExpression code(u"<(?:[\\w.-]+:)?VerificationCode[^>]*>([^<]*)<"_s);
    for (auto header = message.headers.cbegin(); header != message.headers.cend(); ++header)
        if (isSecretName(header.key()))
            learnCredentials(*header);
    learnAddress(message.url);
    for (const QByteArray &xml : {message.body, message.answer}) {
        const QString text = QString::fromUtf8(xml);
        for (auto match = code.globalMatch(text); match.hasNext();)
            learnCode(match.next().captured(1));
    }
}

QString Secrets::masked(QString text) const
{
    // Longest first: one secret may be part of another.
    QStringList secrets = m_secrets.values();
    std::sort(secrets.begin(), secrets.end(),
        [](const QString &left, const QString &right) { return left.size() > right.size(); });
    // Most texts of a journal are a word: looking for what they cannot hold would take most of the
    // time.
    const bool mayHoldAddress = text.contains(u'@') || text.contains(u'=');
    const bool mayHoldHeader = text.contains(u':') || text.contains(u'=');
    if (mayHoldAddress)
        text = withoutCredentials(text);
    if (mayHoldHeader)
        text = withoutHeader(text);
    for (const QString &secret : secrets)
        text.replace(secret, stars);
    for (const QString &code : m_codes)
        if (text.contains(code))
            text.replace(QRegularExpression(
                             u"(?<![\\w.-])%1(?![\\w.-])"_s.arg(QRegularExpression::escape(code))),
                stars);
    return text.contains(u'<') ? masks::withoutVerificationCodes(text) : text;
}

QString Secrets::maskedLine(const QString &line) const
{
    // A setting that is commented out may still hold yesterday's password.
    static const QRegularExpression setting(u"\\A([^=]+?)(\\s*=\\s*)(.*)\\z"_s);
    const auto match = setting.match(line);
    const QString value = match.captured(3).trimmed();
    if (match.hasMatch() && isSecretName(match.captured(1)) && !value.isEmpty()
        && !value.startsWith(fileReference))
        return match.captured(1) + match.captured(2) + stars;
    return masked(line);
}

QByteArray Secrets::maskedSettings(const QByteArray &ini) const
{
    QStringList lines = QString::fromUtf8(ini).split(u'\n');
    for (QString &line : lines)
        line = maskedLine(line);
    return lines.join(u'\n').toUtf8();
}

QJsonValue Secrets::maskedMember(const QString &name, const QJsonValue &value) const
{
    if (isCodeName(name) || isSecretName(name))
        return value.isNull() || value == QJsonValue(QString()) ? value : QJsonValue(stars);
    return masked(value);
}

QJsonValue Secrets::masked(const QJsonValue &json) const
{
    if (json.isString())
        return masked(json.toString());
    if (json.isArray()) {
        const QJsonArray given = json.toArray();
        QJsonArray items;
        for (const auto &item : given)
            items.append(masked(QJsonValue(item)));
        return items;
    }
    if (!json.isObject())
        return json;
    QJsonObject members;
    const QJsonObject given = json.toObject();
    for (auto member = given.begin(); member != given.end(); ++member)
        members.insert(member.key(), maskedMember(member.key(), member.value()));
    return members;
}

QByteArray Secrets::maskedJson(const QByteArray &json) const
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isObject())
        return masked(QString::fromUtf8(json)).toUtf8();
    const bool isOneLine = json.trimmed().count('\n') == 0;
    return QJsonDocument(masked(QJsonValue(document.object())).toObject())
        .toJson(isOneLine ? QJsonDocument::Compact : QJsonDocument::Indented);
}

QueueMessage Secrets::masked(QueueMessage message) const
{
    for (auto header = message.headers.begin(); header != message.headers.end(); ++header)
        *header = isSecretName(header.key()) ? stars : masked(*header);
    message.url = masked(message.url);
    message.body = masked(QString::fromUtf8(message.body)).toUtf8();
    message.answer = masked(QString::fromUtf8(message.answer)).toUtf8();
    message.lastError = masked(message.lastError);
    message.remark = masked(message.remark);
    return message;
}

} // namespace till::support

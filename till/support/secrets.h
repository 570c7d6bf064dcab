#pragma once

#include "host/queue/queuemessage.h"

#include <QByteArray>
#include <QJsonValue>
#include <QSet>
#include <QString>
#include <QStringList>

namespace till::support {

/// Hides in texts what must not leave the till: passwords, credentials in each of their forms, and
/// the codes that customers told.
class Secrets
{
public:
    /// Knows nothing yet but the places where secrets stand: settings of that name, credentials in
    /// addresses, verification codes.
    Secrets() = default;

    /// Learns the secrets of the configuration that is loaded.
    void learnConfiguration();
    /// Learns what an open document keeps for its customer.
    void learnDocument(const QByteArray &json);
    /// Learns the credentials and the codes that a queued message carries.
    void learnMessage(const QueueMessage &message);

    /// A line-by-line text: a log, a torn journal.
    [[nodiscard]] QString masked(QString text) const;
    /// Settings, line by line; what names a file with a value stays as it is.
    [[nodiscard]] QByteArray maskedSettings(const QByteArray &ini) const;
    /// JSON of any kind: its texts are masked, its shape stays.
    [[nodiscard]] QJsonValue masked(const QJsonValue &json) const;
    /// JSON in a file, or a line of it; what is none is masked as a text.
    [[nodiscard]] QByteArray maskedJson(const QByteArray &json) const;
    /// A message: its body stays readable.
    [[nodiscard]] QueueMessage masked(QueueMessage message) const;

private:
    void learn(const QString &secret);
    void learnCredentials(const QString &encoded);
    void learnAddress(const QString &address);
    void learnCode(const QString &code);
    [[nodiscard]] QJsonValue maskedMember(const QString &name, const QJsonValue &value) const;
    [[nodiscard]] QString maskedLine(const QString &line) const;

    QSet<QString> m_secrets;
    QSet<QString> m_codes; ///< short: masked as whole words only
};

} // namespace till::support

#pragma once

#include "host/export.h"

#include <QObject>
#include <QSet>
#include <QString>

/// Options of a client, with the host's own codes.
enum class ClientOptions : int
{
    ElectronicCheque = 1, ///< wants cheques electronically
    ChequeByEmail = 2, ///< to the e-mail address
};

/// The holder of a card, as the cashier sees him. A QObject, named "client", so that masks can read
/// its properties.
class POSHOST_EXPORT Client : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ getName)
    Q_PROPERTY(QString email READ getEmail)

public:
    Client() { setObjectName(QStringLiteral("client")); }

    [[nodiscard]] QString getName() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    [[nodiscard]] QString getEmail() const { return m_email; }
    void setEmail(const QString &email) { m_email = email; }
    [[nodiscard]] bool hasOption(ClientOptions option) const { return m_options.contains(option); }
    [[nodiscard]] const QSet<ClientOptions> &getOptions() const { return m_options; }
    void setOption(ClientOptions option) { m_options.insert(option); }

private:
    QString m_name;
    QString m_email;
    QSet<ClientOptions> m_options;
};

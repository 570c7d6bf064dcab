#pragma once

#include "tests/restart/scenario.h"
#include "tests/restart/socket.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace restart {

/// Folder and ports of one till and its service, prepared as a scenario wants them: the sample
/// configuration, the scenario's own settings and service data where it has them, and nothing
/// sold yet. Removed with the object.
class Premises
{
public:
    /// @throws std::runtime_error when a file cannot be written.
    explicit Premises(const Scenario &scenario);

    /// Writes where the till finds the service.
    /// @param loyaltyPort of the exchanges of the plug-in; those of the API go to the service.
    void setLoyaltyPort(quint16 loyaltyPort) const;

    [[nodiscard]] quint16 servicePort() const { return m_servicePort.port(); }
    [[nodiscard]] QString settings() const { return path(QStringLiteral("till.ini")); }
    /// The state folder of the till.
    [[nodiscard]] QString state() const { return path(QStringLiteral("state")); }
    [[nodiscard]] QString serviceData() const { return m_serviceData; }
    /// Where the service keeps its books.
    [[nodiscard]] QString serviceState() const { return path(QStringLiteral("service.sqlite")); }
    /// Leaves the folder where it is, for a look at it; its path.
    QString keep();

private:
    [[nodiscard]] QString path(const QString &name) const { return m_folder.filePath(name); }
    void write(const QString &name, const QByteArray &contents) const;
    void copy(const QString &from, const QString &name) const;

    QTemporaryDir m_folder;
    // Taken for as long as this lives: the service comes back to it after it was stopped.
    Socket m_servicePort = Socket::onFreePort();
    QString m_serviceData;
};

} // namespace restart

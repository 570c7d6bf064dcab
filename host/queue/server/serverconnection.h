#pragma once

#include "host/framework/tr.h"
#include "host/queue/server/serveraddress.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QVariantList>

#include <chrono>

class QueueDatabase;

/// The connection to the server of a shared queue.
namespace serverconnection {

/// What is said when a wait was ended here.
[[nodiscard]] tr::Tr notAnsweredInTime();

/// Opens it until then, with half of the time for the name and the way there.
/// @throws QueueUnreached when that fails; one line without the password.
void open(QSqlDatabase &database, const ServerAddress &address,
    std::chrono::steady_clock::time_point deadline);
/// The socket of an open connection.
[[nodiscard]] int socket(const QSqlDatabase &database);
/// Has every commit synced, and the server end what takes too long.
/// @throws QueueUnreached also when the server does not sync commits.
void configure(QueueDatabase &database);

/// A driver's error in one line.
[[nodiscard]] tr::Tr shown(const QSqlError &error);
/// The statement that prepares another one, which has question marks for its values only, under a
/// name.
[[nodiscard]] QString preparation(const QString &name, const QString &statement);
/// The statement with values in place of its question marks. Texts lose the character 0, which the
/// server cannot store.
[[nodiscard]] QString filled(
    const QSqlDatabase &database, const QString &statement, const QVariantList &values);
/// The statement that runs a prepared one with values, of which the same holds.
[[nodiscard]] QString execution(
    const QSqlDatabase &database, const QString &name, const QVariantList &values);

} // namespace serverconnection

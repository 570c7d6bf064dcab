#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

namespace till {

/// The request that the plug-in sends when that card is presented, by the settings that were read
/// and at this time. It books nothing.
/// @param objects what the masks of the settings look at, such as a document; not owned.
[[nodiscard]] QByteArray balanceRequest(const QString &card, const QList<QObject *> &objects);

} // namespace till

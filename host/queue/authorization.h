#pragma once

#include "host/queue/queuemessage.h"

/// The credentials that a message carries in its headers.
namespace authorization {

/// Gives the message's "Authorization", however it is spelled, that value.
/// @return false when it has none; it is then unchanged.
bool replace(QHash<QString, QString> &headers, const QString &value);

/// Takes the credentials off: the value of the header, which stays, and those of the address.
void takeOff(QueueMessage &message);
/// Puts them on where they were taken off; without a value the header goes.
void putOn(QueueMessage &message, const QString &value);

} // namespace authorization

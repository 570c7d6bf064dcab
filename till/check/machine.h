#pragma once

#include "till/check/effective.h"
#include "till/check/finding.h"

#include <QByteArray>
#include <QString>

/// What the machine has for the till: functions that look and change nothing.
namespace till::check {

/// The state folder, and the disk below it.
[[nodiscard]] Findings judgeStateFolder(const QString &path);
/// Whether there is room for cheques.
/// @param bytes free for the till's user.
[[nodiscard]] Findings judgeRoom(qint64 bytes, const QString &path);
/// Whether user and password go out as the service knows them.
/// @param codeset of the environment's locale, as nl_langinfo names it.
[[nodiscard]] Findings judgeCredentials(const Effective &effective, const QByteArray &codeset);
/// The articles, where there are any.
[[nodiscard]] Findings judgeCatalogue(const Effective &effective);
/// What is printed: whether the templates are there and can be filled.
[[nodiscard]] Findings judgeTemplates(const Effective &effective);
/// The plug-in by its file's metadata; none of its code runs.
[[nodiscard]] Findings judgePlugin(const QString &fileName);

/// The codeset of the locale that the environment asks for, whatever Qt has made of it.
[[nodiscard]] QByteArray codesetOfEnvironment();

} // namespace till::check

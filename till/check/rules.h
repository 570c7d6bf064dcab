#pragma once

#include "till/check/effective.h"
#include "till/check/finding.h"
#include "till/check/settingfiles.h"

#include <QDateTime>

/// What is wrong with a configuration: functions of its files and of what counts of them. They look
/// at files that it names, and change nothing.
namespace till::check {

/// Keys and sections that nothing reads, or that stand there more than once.
[[nodiscard]] Findings judgeKeys(const SettingFiles &files);
/// Values that are not as their setting's type, range or mask wants them.
[[nodiscard]] Findings judgeValues(const SettingFiles &files, const Effective &effective);
/// The settings that take their default, in the order of the schema.
[[nodiscard]] Findings tellDefaults(const Effective &effective);
/// Settings that say nothing together, or different things.
[[nodiscard]] Findings judgeCombinations(const SettingFiles &files, const Effective &effective);
/// Secrets that others may read, on disk or on their way.
[[nodiscard]] Findings judgeSafety(const SettingFiles &files, const Effective &effective);
/// The certificates and the key of the settings: whether they belong together, and until when they
/// hold.
/// @param now UTC.
[[nodiscard]] Findings judgeCertificates(const Effective &effective, const QDateTime &now);

/// A certificate that has run out, or soon will; nothing otherwise.
/// @param shown how people know it: a file or a server.
[[nodiscard]] Findings judgeEnd(const QString &shown, const QDateTime &ends, const QDateTime &now,
    Area area, const Place &place);

} // namespace till::check

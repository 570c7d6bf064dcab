#pragma once

#include "host/export.h"
#include "host/framework/tr.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// INI files as they stand: every section and setting in file order with its place, nothing
/// interpreted.
///
/// A line is blank, a comment ("#" or ";" as its first character), a "[section]" or a
/// "key = value". Keys and values are trimmed; beyond that a value is what stands behind the first
/// "=", so that backslashes, commas, semicolons and quotes reach whoever reads it.
namespace ini {

/// What a file of settings, or one that a value is read from, may hold: more is no such file.
constexpr qsizetype mostMebibytes = 1;
constexpr qsizetype longestFile = mostMebibytes * 1024 * 1024; ///< bytes

struct Setting
{
    QString key;
    QString value;
    int line = 0; ///< from 1
    int column = 0; ///< where the value begins, from 1
};

struct Section
{
    QString name; ///< without ":", which parts section and key elsewhere
    QList<Setting> settings; ///< repeated keys included
    int line = 0; ///< of its name, from 1
};

/// A line that is no section, setting, comment or blank.
struct Defect
{
    int line = 0; ///< from 1
    int column = 0; ///< from 1
    tr::Tr text; ///< what is wrong, and what to do
};

struct Reading
{
    QList<Section> sections;
    QList<Defect> defects; ///< in file order; the lines are left out
};

/// Reads on behind what is wrong, for those who want to know all of it. Otherwise as `parse`.
[[nodiscard]] POSHOST_EXPORT Reading read(const QByteArray &bytes);

/// Splits a file in UTF-8, with or without a byte order mark, its lines ended by LF or CRLF. A
/// section that is opened twice is there twice.
/// @param fileName for the messages only.
/// @throws ConfigError "file:line:column: …" at the first line that is none of the above.
[[nodiscard]] POSHOST_EXPORT QList<Section> parse(const QByteArray &bytes, const QString &fileName);

} // namespace ini

#pragma once

#include "host/framework/tr.h"

#include <QList>
#include <QString>

namespace till::check {

/// How much a finding matters, the worst last.
enum class Severity
{
    Ok, ///< as it should be
    Note, ///< worth knowing; nothing to be done
    Warning, ///< the till sells, but not as it seems or not for long
    Error, ///< something does not work
};

/// What was looked at, in this order.
enum class Area
{
    Configuration,
    Machine,
    Service,
};

/// Where a finding stands in the configuration. A record of values.
struct Place
{
    QString file; ///< empty: nowhere
    int line = 0; ///< from 1; 0: nowhere or the whole file
    QString key; ///< "Section:key"; empty: none
};

/// One thing that was found. Holds no secret: values of secret settings are in none. A record of
/// values.
struct Finding
{
    Severity severity = Severity::Ok;
    Area area = Area::Configuration;
    Place place;
    tr::Tr what; ///< its id is the finding's
    tr::Tr remedy; ///< what to do; empty where nothing is to be done
};

using Findings = QList<Finding>;

/// The worst severity of all; `Ok` when there are none.
[[nodiscard]] Severity worst(const Findings &findings);
/// "ok", "note", "warning", "error": for programs.
[[nodiscard]] QString nameOf(Severity severity);
/// "configuration", "machine", "service": for programs.
[[nodiscard]] QString nameOf(Area area);

} // namespace till::check

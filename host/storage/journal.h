#pragma once

#include "host/export.h"

#include <QString>
#include <QVariantMap>

/// The till's journal: one JSON object a line, appended, never changed.
///
/// Written only when a state folder was set. To be called from the host's thread only.
class POSHOST_EXPORT Journal
{
public:
    /// Appends a line: the members "time", "correlationId" and "document" (number, both of the
    /// current document, null at an empty desk), "kind", and those given. A journal that cannot be
    /// written never stops a sale: the log then has one warning until it can be written again.
    /// @param kind   what the line is about, "event" or "exception" for instance.
    /// @param values further members; messages (`tr::Tr`) are written as their Russian text.
    static void append(const QString &kind, const QVariantMap &values);
};

#pragma once

#include "host/export.h"

#include <QDomDocument>
#include <QDomElement>
#include <QString>

/// Small helpers for XML documents.
namespace xmlutils {

/// An element of that tag with one text child, also for an empty text. Characters that XML 1.0
/// cannot carry are left out: one of them would make the whole document unreadable.
[[nodiscard]] POSHOST_EXPORT QDomElement createTextElement(
    QDomDocument &document, const QString &tag, const QString &text);
/// Appends the element unless it is null.
POSHOST_EXPORT void appendNotNull(QDomElement &parent, const QDomElement &element);
/// The text of the index-th element of that tag in document order, at any depth: null when there is
/// no such element, empty but not null for an empty one.
/// @param index from 0.
[[nodiscard]] POSHOST_EXPORT QString getValueByTag(
    const QDomDocument &scope, const QString &tag, int index);
[[nodiscard]] POSHOST_EXPORT QString getValueByTag(
    const QDomElement &scope, const QString &tag, int index);

} // namespace xmlutils

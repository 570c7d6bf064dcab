#pragma once

#include <QDomElement>
#include <QString>
#include <QStringList>

/// XML compared as trees: the order of attributes, comments and blank text between elements do not
/// count; names, attributes, the order of elements and the text of those without children do.

/// How the trees differ, one line per difference, each with the path of its element; empty when
/// they are the same.
[[nodiscard]] QStringList xmlDifferences(const QDomElement &actual, const QDomElement &expected);
/// Likewise for documents as texts; one that cannot be parsed is a difference.
[[nodiscard]] QStringList xmlDifferences(const QByteArray &actual, const QByteArray &expected);

/// The child elements, in order.
[[nodiscard]] QList<QDomElement> childElements(const QDomElement &parent);
/// Their names, in order.
[[nodiscard]] QStringList childNames(const QDomElement &parent);
/// The text of the first child element of that name; null without one.
[[nodiscard]] QString childText(const QDomElement &parent, const QString &name);

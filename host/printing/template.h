#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

/// Mustache templates for texts on paper: no escapes, since paper has no markup.
namespace printtemplate {

/// The template of that name: from the first folder that has it.
/// @throws BasicException when none has it; the message names the template.
[[nodiscard]] QString load(const QString &name, const QStringList &folders);

/// Fills a template. Texts stand as they are, numbers in their shortest form without an exponent;
/// an empty text, an invalid value and false leave a section out.
/// @param name only stands in messages.
/// @throws BasicException when the template itself is wrong.
[[nodiscard]] QString fill(const QString &contents, const QVariantMap &data, const QString &name);

} // namespace printtemplate

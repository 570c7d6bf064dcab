#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace emulator {

/// The elements of a document in order, one line each: "Envelope/Body/…/ReturnCode = 0", without
/// prefixes, comments and blanks between elements. Two documents are the same message when their
/// lines are equal. Elements named in `without` are left out.
QStringList xmlLines(const QByteArray &xml, const QStringList &without = {});

/// The text of the first element of that name in the whole document, as a till reads it.
QString firstValue(const QByteArray &xml, const QString &name);

} // namespace emulator

#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"

#include <QMap>
#include <QString>
#include <QVariant>

/// Prints text templates. `MockFactory<TextPrinter>::create()`.
class POSHOST_EXPORT TextPrinter
{
public:
    /// Copy count that leaves the number to the printer: one.
    static constexpr int defaultCopies = -1;

    TextPrinter() = default;
    virtual ~TextPrinter();
    Q_DISABLE_COPY_MOVE(TextPrinter)

    /// Fills the template and prints it.
    /// @param templateName name of a file of the template folder, without ".mustache".
    /// @param text   printed as it stands instead of the template where it is not empty.
    /// @param data   what the template can name.
    /// @param copies how many; `defaultCopies`: one.
    /// @param cut    whether the paper is cut behind it.
    /// @throws BasicException when the template is missing or the receipt file cannot be written.
    virtual void print(const QString &templateName, const QString &text,
        const QMap<QString, QVariant> &data, int copies, bool cut);
};

extern template class POSHOST_EXPORT MockFactory<TextPrinter>;

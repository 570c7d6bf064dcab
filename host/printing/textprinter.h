#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"

#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

/// Prints text templates. `MockFactory<TextPrinter>::create()`.
///
/// A template is a file `<name>.mustache`: looked for in the folder of the setting
/// "TextPrinter:templates", then in "../share/korvel/templates" beside the program, then among the
/// built-in ones. What is printed is appended to the receipt file of the day and shown on the
/// screen. Texts go out as they are, without escapes.
class POSHOST_EXPORT TextPrinter
{
public:
    /// Copy count that leaves the number to the printer: one.
    static constexpr int defaultCopies = -1;

    /// Shows a printed text to the cashier.
    using Screen = std::function<void(const QString &text)>;

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

    /// What `print` puts on paper for the same arguments, every copy of it. Prints nothing.
    /// @throws BasicException when the template is missing.
    [[nodiscard]] static QString sheets(const QString &templateName, const QString &text,
        const QMap<QString, QVariant> &data, int copies, bool cut);

    /// Sets who shows what is printed, for all printers; an empty function: nobody.
    static void setScreen(Screen screen);

private:
    static Screen s_screen;
};

extern template class POSHOST_EXPORT MockFactory<TextPrinter>;

#pragma once

#include "host/export.h"

#include <QDateTime>
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QVariantList>

namespace tr {

/// Id of a message that has no translation of its own: its text came from elsewhere.
POSHOST_EXPORT extern const QString undefined;

/// A message to people: an id that translations are looked up by, and its Russian text.
///
/// A value type. Arguments given with `arg` fill "%1", "%2", … of the Russian text and of its
/// translation alike, so they are kept apart from both until the text is asked for.
class POSHOST_EXPORT Tr
{
public:
    Tr() = default;
    /// @param id   id of the message; `tr::undefined` for a text that is not ours.
    /// @param text Russian text, with "%1", "%2", … where arguments belong.
    Tr(QString id, QString text);

    /// Returns this message with the next free placeholder filled.
    [[nodiscard]] Tr arg(const QString &argument) const;
    /// The same with a message, which comes in the language that the whole is asked for in.
    [[nodiscard]] Tr arg(const Tr &argument) const;
    /// The same with an amount of money or points: plain in the Russian text ("1234.50"), in that
    /// of the interface as the locale writes it.
    [[nodiscard]] Tr argAmount(double amount) const;
    /// The same with a moment, date and time to the minute: "21.11.2026 09:30" in the Russian text,
    /// in that of the interface as the locale writes it; in the time zone of the moment.
    [[nodiscard]] Tr argMoment(const QDateTime &moment) const;

    [[nodiscard]] QString id() const { return m_id; }
    /// The Russian text, arguments filled.
    [[nodiscard]] QString ru() const;
    /// The text in the language of the interface, arguments filled; Russian where none is loaded.
    [[nodiscard]] QString ui() const;
    /// The same of a text with "%n": the plural form for the count, which is filled in, as "%Ln" by
    /// the locale. The Russian text itself is the form for many.
    [[nodiscard]] QString ui(int count) const;
    [[nodiscard]] bool isEmpty() const { return m_text.isEmpty(); }

    /// The message as a value of an event's arguments.
    operator QVariant() const; // NOLINT(google-explicit-constructor): given as one everywhere

    friend bool operator==(const Tr &left, const Tr &right) = default;

private:
    [[nodiscard]] Tr with(const QVariant &argument) const;
    [[nodiscard]] QString filledForInterface(const QString &text) const;

    QString m_id;
    QString m_text;
    QVariantList m_arguments; ///< texts, messages, amounts and moments
};

} // namespace tr

Q_DECLARE_METATYPE(tr::Tr)

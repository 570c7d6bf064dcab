#pragma once

#include "host/framework/tr.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

namespace till {

/// The arguments of one command, taken one after the other.
///
/// Every operation throws `CannotDo` when the argument is missing or is not what it must be; the
/// message ends in the command's usage.
class Arguments
{
public:
    /// @param words   the words behind the command's name.
    /// @param usage   how the command is written, for messages.
    /// @param options names of its options, written "name=value" anywhere among the words.
    Arguments(const QStringList &words, QString usage, const QStringList &options = {});

    [[nodiscard]] bool empty() const { return m_words.isEmpty(); }
    /// The next word; never empty.
    QString text(const QString &name);
    /// All words that are left, at least one, joined by blanks.
    QString rest(const QString &name);
    /// A decimal number greater than 0, as exact as a double holds it.
    double positiveNumber(const QString &name);
    /// A decimal number of 0 or more.
    double number(const QString &name);
    /// An integer from 1.
    int position();
    [[nodiscard]] std::optional<QString> option(const QString &name) const;
    [[nodiscard]] std::optional<double> numberOption(const QString &name) const;
    /// Throws when words are left.
    void end() const;

private:
    [[nodiscard]] double toNumber(const QString &word, const QString &name) const;
    [[noreturn]] void fail(const tr::Tr &reason) const;

    QStringList m_words;
    QString m_usage;
    QMap<QString, QString> m_options;
};

} // namespace till

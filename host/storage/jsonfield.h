#pragma once

#include "host/export.h"
#include "host/framework/tr.h"

#include <QDateTime>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

/// A value of a JSON file that is being read, with its place in it.
///
/// Strict: what is missing or of another kind is a `StorageError` whose text is the place as a JSON
/// pointer and what was expected there.
class POSHOST_EXPORT JsonField
{
public:
    /// The whole of a file.
    explicit JsonField(QJsonValue value);

    /// A member of an object.
    [[nodiscard]] JsonField at(const QString &name) const;
    /// A member that may be missing.
    [[nodiscard]] std::optional<JsonField> find(const QString &name) const;
    /// Sees that an object has no members but these.
    void allowOnly(const QStringList &names) const;
    /// The members of an array or, in the order of their names, of an object.
    [[nodiscard]] QList<JsonField> items() const;
    /// The name of a member, the number of an item; empty for the whole file.
    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] QJsonValue value() const { return m_value; }
    [[nodiscard]] bool isNull() const { return m_value.isNull(); }

    [[nodiscard]] QString text() const;
    [[nodiscard]] bool flag() const;
    [[nodiscard]] int integer() const;
    /// A number, see `variantjson::fromDouble`.
    [[nodiscard]] double number() const;
    /// Invalid for null.
    [[nodiscard]] QDateTime time() const;
    /// See `variantjson::fromVariant`.
    [[nodiscard]] QVariant variant() const;

    /// Throws the error for this place.
    [[noreturn]] void fail(const tr::Tr &expected) const;

private:
    JsonField(QJsonValue value, const QString &parentPointer, const QString &name);

    QJsonValue m_value;
    QString m_pointer;
    QString m_name;
};

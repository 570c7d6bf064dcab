#pragma once

#include "till/transcript/json.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace till {

/// One `expect PATH OP VALUE`: a claim about the object of a command.
///
/// Numbers are equal within 0.005, and neither greater nor less then. A text contains a part of it,
/// a list an equal element or a text element with that part, an object a member. What is null is
/// absent.
class Expectation
{
public:
    /// @param words path, operator and, except for `exists` and `absent`, the value.
    /// @throws CannotDo when path or operator are none, or words are missing or left over.
    explicit Expectation(const QStringList &words);

    /// What the object has instead, in one line; nothing when the claim holds.
    [[nodiscard]] std::optional<QString> failure(const Json &object) const;

private:
    using Step = std::variant<QString, size_t>;
    enum class Operator
    {
        Equal,
        NotEqual,
        Less,
        Greater,
        Contains,
        Exists,
        Absent
    };

    [[nodiscard]] static QList<Step> parsePath(const QString &path);
    [[nodiscard]] static Operator parseOperator(const QString &name);
    [[nodiscard]] const Json *find(const Json &object) const;
    [[nodiscard]] bool holds(const Json &actual) const;

    QList<Step> m_path;
    Operator m_operator;
    QString m_text; ///< the value as it stands in the script
    Json m_value; ///< what it is as JSON; a text where it is none
    QString m_claim;
};

} // namespace till

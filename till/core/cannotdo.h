#pragma once

#include <QString>

#include <stdexcept>

namespace till {

/// A command or one of its arguments is wrong, or cannot be carried out now.
///
/// Thrown before anything has changed: documents, plug-in and files are as they were.
class CannotDo : public std::runtime_error
{
public:
    /// @param reason what is wrong, in one line.
    /// @param remedy what to do instead.
    CannotDo(const QString &reason, const QString &remedy);
    ~CannotDo() override;

    /// Both together: "reason; remedy".
    [[nodiscard]] QString text() const { return m_text; }

private:
    QString m_text;
};

} // namespace till

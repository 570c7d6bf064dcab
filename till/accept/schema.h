#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace till::accept {

/// The schema of the protocol's messages, envelope included.
class MessageSchema
{
public:
    /// @param protocolFolder also one that is built into the program.
    /// @throws CannotDo when there is no schema that can be used.
    explicit MessageSchema(const QString &protocolFolder);
    ~MessageSchema();
    Q_DISABLE_COPY_MOVE(MessageSchema)

    /// The first thing that does not fit, with its line; empty where all does.
    [[nodiscard]] QString complaintAbout(const QByteArray &message) const;

private:
    struct Private;
    std::unique_ptr<Private> m_private;
};

} // namespace till::accept

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace till::check {

/// What an answer of the service says, as far as it fits protocol/'s schema. A record of values.
struct ReadAnswer
{
    QString complaint; ///< why it does not fit, in the validator's words; empty: it fits
    std::optional<int> returnCode; ///< of the answer; none in a fault
    QString message; ///< of the answer, or the text of a fault
    bool isEnvelope = false; ///< whether it is a SOAP envelope at all
};

/// The schema of whole messages, as it is built in. Compiled once; to be used from one thread.
class AnswerSchema
{
public:
    AnswerSchema();
    ~AnswerSchema();
    Q_DISABLE_COPY_MOVE(AnswerSchema)

    /// Answers with a document type are not read: none has one, and one could make them huge.
    [[nodiscard]] ReadAnswer read(const QByteArray &answer) const;

private:
    struct Private;

    std::unique_ptr<Private> m_private;
};

} // namespace till::check

#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace till {

/// What the loyalty service was asked for.
enum class ServiceOperation
{
    Balance, ///< who has the card, and what is on it
    Calculate, ///< books nothing
    Register, ///< books a sale
    Return, ///< books a return
    Rollback, ///< takes the booking of a sale back
    Unknown,
};

/// "balance", "calculate", "register", "return", "rollback" or "unknown".
[[nodiscard]] QString operationName(ServiceOperation operation);
/// The operation of that name; `Unknown` for any other name.
[[nodiscard]] ServiceOperation operationNamed(const QString &name);

/// What stands in a request to the loyalty service. Empty or none where it does not.
struct RequestFacts
{
    ServiceOperation operation = ServiceOperation::Unknown;
    QString card;
    QString number; ///< of the document
    std::optional<double> sum; ///< after discounts
    std::optional<double> points; ///< to be paid with
};

/// What stands in an answer, for the whole document. Empty or none where it does not.
struct AnswerFacts
{
    std::optional<int> returnCode; ///< 0 or less: the service agrees
    QString message;
    QString transaction; ///< the service's number of the booking
    std::optional<double> available; ///< points that can be spent
    std::optional<double>
        earned; ///< points that can be spent later; status points are not among them
    std::optional<double> charged; ///< everything that was charged or, with a return, given back
    std::optional<double> spent; ///< points written off or, with a return, taken back
    std::optional<double> balance; ///< of the card, after it
    QString verificationCode; ///< a secret between customer and cashier: never to be kept
};

/// Reads as far as the XML is sound; the rest counts as absent, and everything of what cannot be
/// read in good time: see `isReadableMarkup`. Positions and what is referred to
/// are passed over.
[[nodiscard]] RequestFacts requestFacts(const QByteArray &request);
/// The same for an answer.
[[nodiscard]] AnswerFacts answerFacts(const QByteArray &answer);

} // namespace till

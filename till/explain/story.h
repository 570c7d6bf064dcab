#pragma once

#include "host/framework/tr.h"
#include "till/explain/evidence.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace till::explain {

/// Where a step of a story is known from.
enum class Source
{
    Journal,
    Document,
    Queue,
    Log,
    Service,
};

/// "journal", "document", "queue", "log" or "service".
[[nodiscard]] QString sourceName(Source source);

/// Amounts of money and points that belong to a step or an outcome. None where nobody told one.
struct Amounts
{
    std::optional<double> sum; ///< money, after discounts and points
    std::optional<double> available; ///< points that could be spent
    std::optional<double> toSpend; ///< points that a calculation has reckoned with
    std::optional<double> earned;
    std::optional<double> spent;
    std::optional<double> takenBack; ///< points that a return has taken from the card
    std::optional<double> givenBack; ///< points that a return has put on the card again
    std::optional<double> balance; ///< of the card
};

/// One thing that happened.
struct Step
{
    QDateTime time;
    Source source = Source::Journal;
    QString what; ///< a word for programs, always the same for the same kind of thing
    tr::Tr text;
    Amounts amounts;
};

/// Where the points of a document are.
enum class Whereabouts
{
    Booked, ///< the service has them in its books
    Waiting, ///< in the outgoing queue
    Parked, ///< in the outgoing queue, until a person does something
    Refused, ///< the service does not take the document
    Withdrawn, ///< the document was cancelled
    NeverEarned, ///< there is nobody who could get any
    Open, ///< the document is not closed yet
    Unknown,
};

/// "booked", "waiting", "parked", "refused", "withdrawn", "neverEarned", "open" or "unknown".
[[nodiscard]] QString whereaboutsName(Whereabouts where);

/// How a story ends.
struct Conclusion
{
    Whereabouts where = Whereabouts::Unknown;
    tr::Tr why;
    tr::Tr next; ///< the next safe step
    Amounts amounts;
};

/// What became of the points of one document.
struct Story
{
    QString number;
    QString correlationId;
    bool isReturn = false;
    QString refersTo; ///< number of the sale that a return is of; empty: none
    QString card; ///< number; empty without one
    QList<Step> steps; ///< in the order of time
    Conclusion conclusion;
};

/// Tells the story of a document.
/// @param technicalCardName the name by which cards that the till makes up are known.
[[nodiscard]] Story storyOf(const Evidence &evidence, const QString &technicalCardName);

} // namespace till::explain

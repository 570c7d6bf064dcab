#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/tr.h"

#include <QList>
#include <QSharedPointer>
#include <QVariant>

#include <optional>

namespace till {

/// Why the loyalty system did not do what it was asked for.
struct Refusal
{
    tr::Tr message;
    bool flag = false; ///< whether the message is meant for the customer too
};

/// What became of one operation of the till.
struct Outcome
{
    /// What the plug-in's operation answered (bool), the number of the trigger's result that
    /// stopped the action (int), or invalid where there is neither.
    QVariant result;
    std::optional<Refusal> refusal;
    /// What the till itself tells the cashier.
    QList<tr::Tr> notices;
    /// Whether the notices tell of what a person must look at before the day is over.
    bool hasOpenEnds = false;
    /// Number of the card that was presented to the loyalty system; empty: none was.
    QString presentedCard;
    /// The document that the operation closed or cancelled; null for all others.
    QSharedPointer<AbstractDocument> left;
};

} // namespace till

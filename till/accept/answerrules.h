#pragma once

#include "till/accept/answer.h"
#include "till/accept/comparison.h"
#include "till/accept/request.h"
#include "till/accept/schema.h"

#include <QList>
#include <QString>

#include <optional>

namespace till::accept {

/// What one of the rules of every answer says about an answer.
struct AnswerVerdict
{
    QString rule;
    std::optional<Shortfall> shortfall; ///< nothing where the rule is kept
};

/// Looks at an answer for the rules of "till::accept::everyanswer", as far as there is something to
/// look at: an answer that did not come, or is no XML, has neither kind nor elements.
[[nodiscard]] QList<AnswerVerdict> verdictsOn(
    const Answer &answer, const Request &request, const MessageSchema &schema);

} // namespace till::accept

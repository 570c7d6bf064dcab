#include "till/explain/storyobject.h"

#include "host/documents/money.h"

namespace till::explain {

namespace {

Json textOrNull(const QString &text)
{
    return text.isEmpty() ? Json(nullptr) : Json(toJson(text));
}

// Only what was told.
Json amountsObject(const Amounts &amounts)
{
    const std::initializer_list<std::pair<const char *, std::optional<double>>> all{
        {"sum", amounts.sum}, {"available", amounts.available}, {"toSpend", amounts.toSpend},
        {"spent", amounts.spent}, {"earned", amounts.earned}, {"takenBack", amounts.takenBack},
        {"givenBack", amounts.givenBack}, {"balance", amounts.balance}};
    Json object = Json::object();
    for (const auto &[name, amount] : all)
        if (amount)
            object[name] = money::roundedToKopecks(*amount);
    return object;
}

Json stepObject(const Step &step)
{
    return {{"time", dateTimeToJson(step.time.toUTC())},
        {"source", toJson(sourceName(step.source))}, {"what", toJson(step.what)},
        {"detail", toJson(step.text.ru())}, {"amounts", amountsObject(step.amounts)}};
}

} // namespace

Json storyObject(const Story &story)
{
    Json steps = Json::array();
    for (const Step &step : story.steps)
        steps.push_back(stepObject(step));
    const Conclusion &conclusion = story.conclusion;
    return {{"number", toJson(story.number)}, {"correlationId", toJson(story.correlationId)},
        {"return", story.isReturn}, {"refersTo", textOrNull(story.refersTo)},
        {"card", textOrNull(story.card)}, {"steps", steps},
        {"conclusion",
            {{"points", toJson(whereaboutsName(conclusion.where))},
                {"why", toJson(conclusion.why.ru())}, {"next", toJson(conclusion.next.ru())},
                {"amounts", amountsObject(conclusion.amounts)}}}};
}

} // namespace till::explain

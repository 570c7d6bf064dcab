#include "till/explain/story.h"

#include "till/explain/conclusion.h"
#include "till/explain/facts.h"
#include "till/explain/steps.h"

using namespace Qt::StringLiterals;

namespace till::explain {

QString sourceName(Source source)
{
    switch (source) {
    case Source::Journal:
        return u"journal"_s;
    case Source::Document:
        return u"document"_s;
    case Source::Queue:
        return u"queue"_s;
    case Source::Log:
        return u"log"_s;
    case Source::Service:
        break;
    }
    return u"service"_s;
}

QString whereaboutsName(Whereabouts where)
{
    switch (where) {
    case Whereabouts::Booked:
        return u"booked"_s;
    case Whereabouts::Waiting:
        return u"waiting"_s;
    case Whereabouts::Parked:
        return u"parked"_s;
    case Whereabouts::Refused:
        return u"refused"_s;
    case Whereabouts::Withdrawn:
        return u"withdrawn"_s;
    case Whereabouts::NeverEarned:
        return u"neverEarned"_s;
    case Whereabouts::Open:
        return u"open"_s;
    case Whereabouts::Unknown:
        break;
    }
    return u"unknown"_s;
}

Story storyOf(const Evidence &evidence, const QString &technicalCardName)
{
    Story story;
    story.number = evidence.number;
    story.correlationId = evidence.correlationId;
    story.isReturn = facts::isReturn(evidence);
    story.refersTo = evidence.document ? evidence.document->getReferencedNumber() : QString();
    story.card = facts::cardOf(evidence);
    story.steps = stepsOf(evidence);
    story.conclusion = conclude(evidence, technicalCardName);
    return story;
}

} // namespace till::explain

#include "emulator/recording/nearest.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr qsizetype shownCards = 5;

using Candidates = std::vector<const RecordedRequest *>;

template <typename Accept>
Candidates those(const std::vector<RecordedRequest> &recorded, Accept accept)
{
    Candidates found;
    for (const RecordedRequest &request : recorded) {
        if (accept(request.key))
            found.push_back(&request);
    }
    return found;
}

qsizetype inCommon(const RequestKey &asked, const RequestKey &other)
{
    QStringList rest = other.content;
    return std::count_if(asked.content.begin(), asked.content.end(),
        [&](const QString &position) { return rest.removeOne(position); });
}

QString ofTheSameCard(const RequestKey &asked, const Candidates &candidates)
{
    const RecordedRequest *best = *std::max_element(
        candidates.begin(), candidates.end(), [&](const auto *a, const auto *b) {
            return inCommon(asked, a->key) < inCommon(asked, b->key);
        });
    return u"nearest is %1 with the same operation and card, but %2"_s.arg(
        best->name, contentDescription(best->key));
}

QString ofOtherCards(const RequestKey &asked, const Candidates &candidates)
{
    QStringList cards;
    for (const RecordedRequest *candidate : candidates) {
        if (!cards.contains(candidate->key.card))
            cards.append(candidate->key.card);
    }
    const qsizetype more = cards.size() - shownCards;
    const QString shown = cards.mid(0, shownCards).join(u", "_s);
    return u"nearest is %1: %2 was recorded only for card %3"_s.arg(candidates.front()->name,
        asked.operation, more > 0 ? u"%1 and %2 more"_s.arg(shown, QString::number(more)) : shown);
}

} // namespace

QString nearestTo(const RequestKey &asked, const std::vector<RecordedRequest> &recorded)
{
    const Candidates sameOperation
        = those(recorded, [&](const RequestKey &key) { return key.operation == asked.operation; });
    if (sameOperation.empty())
        return u"nothing like it was recorded"_s;
    if (!asked.isReadable())
        return u"nearest is %1, which cannot be read either, but has other bytes"_s.arg(
            sameOperation.front()->name);
    const Candidates sameCard = those(recorded, [&](const RequestKey &key) {
        return key.operation == asked.operation && key.card == asked.card;
    });
    return sameCard.empty() ? ofOtherCards(asked, sameOperation) : ofTheSameCard(asked, sameCard);
}

} // namespace emulator

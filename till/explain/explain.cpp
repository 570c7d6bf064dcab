#include "till/explain/explain.h"

#include "host/storage/storageerror.h"
#include "host/text/plaintext.h"
#include "till/core/cannotdo.h"
#include "till/exitstatus.h"
#include "till/explain/gathering.h"
#include "till/explain/place.h"
#include "till/explain/servicebalance.h"
#include "till/explain/storyobject.h"
#include "till/explain/storytext.h"
#include "till/queue/output.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

using namespace explain;
using Meaning = ExplainOptions::Meaning;

/// An answer to the question: stories, and what must be known to read them.
struct Answer
{
    Meaning meaning = Meaning::Cheque;
    QList<Story> stories;
    Findings findings;
};

[[noreturn]] void failUnclear(const QString &asked)
{
    throw CannotDo(tr::Tr(u"explainUnclear"_s, u"«%1» — и номер чека, и номер карты"_s).arg(asked),
        {u"explainUnclearRemedy"_s, u"добавьте --cheque или --card"_s});
}

void append(QStringList &texts, const QStringList &more)
{
    for (const QString &text : more)
        if (!texts.contains(text))
            texts.append(text);
}

Answer find(const ExplainOptions &options, Place &place)
{
    Gathering gathering(place.stateFolder(), place.messages());
    Answer answer;
    answer.meaning = options.meaning;
    if (options.meaning != Meaning::Card) {
        answer.findings = gathering.ofCheque(options.asked);
        answer.meaning = Meaning::Cheque;
    }
    if (options.meaning == Meaning::Cheque)
        return answer;
    Findings ofCard = gathering.ofCard(options.asked);
    if (!ofCard.documents.isEmpty() && !answer.findings.documents.isEmpty())
        failUnclear(options.asked);
    if (ofCard.documents.isEmpty() && options.meaning == Meaning::Either)
        return answer;
    answer.findings = std::move(ofCard);
    answer.meaning = Meaning::Card;
    return answer;
}

void keepOnly(Findings &findings, const QString &idBeginning)
{
    findings.documents.removeIf([&idBeginning](const Evidence &evidence) {
        return !evidence.correlationId.startsWith(idBeginning);
    });
}

// Each card is asked about once; what was made up at the till has no balance.
void askTheService(Answer &answer, const QString &technicalCardName)
{
    if (!isServiceConfigured())
        return;
    QHash<QString, Step> asked;
    for (qsizetype number = 0; number < answer.stories.size(); ++number) {
        Story &story = answer.stories[number];
        const auto document = answer.findings.documents.at(number).document;
        const auto card = document ? document->getCardRecord(ECardMode::OnlineLoyalty) : nullptr;
        const auto group = card ? card->getCard()->getCardGroup() : nullptr;
        if (story.card.isEmpty() || (group && group->getName() == technicalCardName))
            continue;
        if (!asked.contains(story.card))
            asked.insert(story.card, askForBalance(story.card, document.get()));
        story.steps.append(asked.value(story.card));
    }
}

Json remarksOf(const Findings &findings)
{
    Json remarks = Json::array();
    for (const tr::Tr &remark : findings.remarks)
        remarks.push_back(toJson(remark.ru()));
    return remarks;
}

void printObject(const ExplainOptions &options, const Place &place, const Answer &answer)
{
    Json stories = Json::array();
    for (const Story &story : answer.stories)
        stories.push_back(storyObject(story));
    Json searched = Json::array();
    for (const QString &path : answer.findings.searched)
        searched.push_back(toJson(place.shown(path)));
    print(Json{{"asked", toJson(options.asked)},
        {"as", answer.meaning == Meaning::Card ? "card" : "cheque"}, {"stories", stories},
        {"olderLeftOut", answer.findings.isMore}, {"remarks", remarksOf(answer.findings)},
        {"searched", searched}});
}

QString introduction(const ExplainOptions &options, const Answer &answer)
{
    if (answer.meaning == Meaning::Card)
        return answer.findings.isMore
            ? tr::Tr(
                u"explainLastOfCard"_s, u"Карта %1: последние чеки и возвраты, всего их больше"_s)
                  .arg(options.asked)
                  .ui()
            : tr::Tr(u"explainOfCard"_s, u"Карта %1: чеки и возвраты этой кассы"_s)
                  .arg(options.asked)
                  .ui();
    if (answer.stories.size() < 2)
        return {};
    return tr::Tr(u"explainSameNumber"_s,
        u"Номер %1 был у нескольких документов; один из них покажет --id с началом его метки"_s)
        .arg(options.asked)
        .ui();
}

void printText(const ExplainOptions &options, const Answer &answer)
{
    QStringList parts;
    if (const QString beginning = introduction(options, answer); !beginning.isEmpty())
        parts.append(plaintext::line(beginning) + u'\n');
    for (const Story &story : answer.stories)
        parts.append(storyText(story));
    print(parts.join(u'\n'));
    for (const tr::Tr &remark : answer.findings.remarks)
        complain(remark.ui());
}

void complainOfNothing(const ExplainOptions &options, const Place &place, const Findings &findings)
{
    QStringList searched;
    for (const QString &path : findings.searched)
        append(searched, {place.shown(path)});
    const tr::Tr what = options.meaning == Meaning::Card
        ? tr::Tr(u"explainNoCard"_s, u"карта %1 не найдена"_s).arg(options.asked)
        : (options.meaning == Meaning::Cheque
                ? tr::Tr(u"explainNoCheque"_s, u"чек %1 не найден"_s).arg(options.asked)
                : tr::Tr(u"explainNothing"_s, u"нет ни чека, ни карты %1"_s).arg(options.asked));
    for (const tr::Tr &remark : findings.remarks)
        complain(remark.ui());
    complain(tr::Tr(u"explainSearched"_s, u"%1; просмотрены %2"_s)
                 .arg(what)
                 .arg(searched.join(u", "_s))
                 .ui());
}

} // namespace

int explainPoints(const ExplainOptions &options)
{
    Place place(options);
    Answer answer = find(options, place);
    keepOnly(answer.findings, options.correlationId);
    for (const Evidence &evidence : answer.findings.documents)
        answer.stories.append(storyOf(evidence, place.technicalCardName()));
    if (options.withService && !place.isArchive())
        askTheService(answer, place.technicalCardName());
    if (options.json)
        printObject(options, place, answer);
    else if (!answer.stories.isEmpty())
        printText(options, answer);
    if (!answer.stories.isEmpty())
        return static_cast<int>(ExitStatus::Success);
    complainOfNothing(options, place, answer.findings);
    return static_cast<int>(ExitStatus::NotAllDone);
}

} // namespace till

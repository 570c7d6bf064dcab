#include "till/explain/gathering.h"

#include "host/storage/storageerror.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

QDateTime beginOf(const Evidence &evidence)
{
    if (evidence.document)
        return evidence.document->getOpened();
    return evidence.journal.isEmpty() ? QDateTime() : evidence.journal.constFirst().time;
}

QDateTime endOf(const Evidence &evidence)
{
    if (evidence.document && evidence.document->getClosed().isValid())
        return evidence.document->getClosed();
    return evidence.journal.isEmpty() ? beginOf(evidence) : evidence.journal.constLast().time;
}

} // namespace

Gathering::Gathering(const QString &stateFolder, MessageSource &messages)
    : m_stateFolder(stateFolder)
    , m_messages(messages)
    , m_shelf(stateFolder)
    , m_logs(stateFolder + u"/log"_s)
{ }

JournalExtract Gathering::readJournal(const QByteArrayList &wanted)
{
    JournalExtract extract = explain::readJournal(m_stateFolder + u"/journal.jsonl"_s, wanted);
    m_torn = extract.torn;
    m_endsTorn = extract.endsTorn;
    return extract;
}

void Gathering::add(QList<Candidate> &candidates, const Candidate &candidate) const
{
    const bool isKnown = std::any_of(candidates.cbegin(), candidates.cend(),
        [&candidate](const auto &known) { return known.correlationId == candidate.correlationId; });
    if (!isKnown && !candidate.correlationId.isEmpty())
        candidates.append(candidate);
}

QList<Gathering::Candidate> Gathering::candidatesIn(const JournalExtract &extract) const
{
    QList<Candidate> candidates;
    for (const JournalLine &line : extract.lines)
        add(candidates, {line.correlationId, line.document, {}});
    return candidates;
}

Findings Gathering::ofCheque(const QString &number)
{
    QList<Candidate> candidates;
    for (const auto &document : m_shelf.numbered(number))
        add(candidates, {document->getCorrelationId(), number, document});
    JournalExtract extract = readJournal({number.toUtf8()});
    extract.lines.removeIf([&number](const JournalLine &line) { return line.document != number; });
    for (const Candidate &candidate : candidatesIn(extract))
        add(candidates, candidate);
    return gather(candidates);
}

Findings Gathering::ofCard(const QString &card)
{
    // One more than is told of shows whether there are older ones.
    QList<Candidate> candidates;
    for (const auto &document : m_shelf.ofCard(card, documentsOfCard + 1))
        add(candidates, {document->getCorrelationId(), document->getNumber(), document});
    JournalExtract extract = readJournal({card.toUtf8()});
    extract.lines.removeIf([&card](const JournalLine &line) {
        return line.members.value(u"card").toString() != card;
    });
    for (Candidate candidate : candidatesIn(extract)) {
        candidate.document = m_shelf.identified(candidate.correlationId, candidate.number);
        add(candidates, candidate);
    }
    Findings findings = gather(candidates);
    findings.isMore = findings.documents.size() > documentsOfCard;
    if (findings.isMore)
        findings.documents = findings.documents.last(documentsOfCard);
    return findings;
}

Findings Gathering::gather(const QList<Candidate> &candidates)
{
    Findings findings;
    QByteArrayList ids;
    for (const Candidate &candidate : candidates)
        ids.append(candidate.correlationId.toUtf8());
    const JournalExtract extract = readJournal(ids);
    for (const Candidate &candidate : candidates)
        findings.documents.append(evidenceOf(candidate, extract));
    std::stable_sort(findings.documents.begin(), findings.documents.end(),
        [](const Evidence &left, const Evidence &right) { return beginOf(left) < beginOf(right); });
    findings.remarks = remarks();
    findings.searched
        = {m_shelf.closedFolder(), m_shelf.openFile(), m_stateFolder + u"/journal.jsonl"_s};
    return findings;
}

Evidence Gathering::evidenceOf(const Candidate &candidate, const JournalExtract &extract)
{
    Evidence evidence;
    evidence.number = candidate.number;
    evidence.correlationId = candidate.correlationId;
    evidence.document = candidate.document;
    for (const JournalLine &line : extract.lines)
        if (line.correlationId == candidate.correlationId)
            evidence.journal.append(line);
    addMessages(evidence);
    addLog(evidence);
    addReturns(evidence);
    return evidence;
}

void Gathering::addMessages(Evidence &evidence)
{
    evidence.queueProblem = m_messages.problem();
    try {
        evidence.messages = m_messages.ofDocument(evidence.correlationId);
    } catch (const StorageError &error) {
        evidence.queueProblem = error.tr();
    }
}

void Gathering::addLog(Evidence &evidence)
{
    QStringList ids;
    for (const QueueMessage &message : evidence.messages)
        ids.append(message.id);
    evidence.log = m_logs.concerning(beginOf(evidence), endOf(evidence), ids);
}

void Gathering::addReturns(Evidence &evidence)
{
    if (!evidence.document
        || evidence.document->getOperationKind() == EOperationKind::GoodsComeBack)
        return;
    const auto returns = m_shelf.returnsOf(*evidence.document);
    QByteArrayList ids;
    for (const auto &document : returns)
        ids.append(document->getCorrelationId().toUtf8());
    if (ids.isEmpty())
        return;
    const JournalExtract extract = readJournal(ids);
    for (const auto &document : returns)
        evidence.returns.append(
            evidenceOf({document->getCorrelationId(), document->getNumber(), document}, extract));
}

QList<tr::Tr> Gathering::remarks() const
{
    QList<tr::Tr> remarks = m_shelf.problems();
    if (m_endsTorn)
        remarks.append(tr::Tr(u"explainJournalEndsTorn"_s,
            u"Последняя строка журнала не дописана: касса как раз пишет её, или питание пропало"_s));
    if (m_torn > 0)
        remarks.append(tr::Tr(u"explainJournalTorn"_s,
            u"Повреждённых строк журнала пропущено: %1; в рассказе может чего-то не хватать"_s)
                           .arg(QString::number(m_torn)));
    return remarks;
}

} // namespace till::explain

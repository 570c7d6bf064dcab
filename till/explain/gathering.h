#pragma once

#include "till/explain/documentshelf.h"
#include "till/explain/evidence.h"
#include "till/explain/journalreading.h"
#include "till/explain/logreading.h"
#include "till/explain/messagesource.h"

#include <QSet>

namespace till::explain {

/// Gathers what a state folder keeps of documents, without changing anything in it.
class Gathering
{
public:
    /// Documents of a card that are told of, at most.
    static constexpr int documentsOfCard = 5;

    /// @param stateFolder or one that was unpacked from an archive.
    /// @param messages must outlive this.
    Gathering(const QString &stateFolder, MessageSource &messages);

    /// Every document that had the number: there are several when numbering was restarted.
    /// @throws StorageError when the journal cannot be read.
    [[nodiscard]] Findings ofCheque(const QString &number);
    /// The last documents that the card was presented for.
    /// @throws StorageError when the journal cannot be read.
    [[nodiscard]] Findings ofCard(const QString &card);

private:
    struct Candidate
    {
        QString correlationId;
        QString number;
        QSharedPointer<AbstractDocument> document; ///< null: none is kept
    };

    [[nodiscard]] Findings gather(const QList<Candidate> &candidates);
    [[nodiscard]] QList<Candidate> candidatesIn(const JournalExtract &extract) const;
    void add(QList<Candidate> &candidates, const Candidate &candidate) const;
    [[nodiscard]] JournalExtract readJournal(const QByteArrayList &wanted);
    [[nodiscard]] Evidence evidenceOf(const Candidate &candidate, const JournalExtract &extract);
    void addMessages(Evidence &evidence);
    void addLog(Evidence &evidence);
    void addReturns(Evidence &evidence);
    [[nodiscard]] QList<tr::Tr> remarks() const;

    QString m_stateFolder;
    MessageSource &m_messages;
    DocumentShelf m_shelf;
    Logs m_logs;
    int m_torn = 0;
    bool m_endsTorn = false;
};

} // namespace till::explain

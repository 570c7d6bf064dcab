#pragma once

#include "host/queue/messagestore.h"
#include "tests/till/program/programfixture.h"

/// Starts `korvel-till queue` on a state folder whose queue the test fills beforehand.
class QueueProgramFixture : public ProgramFixture
{
public:
    QueueProgramFixture();

    /// A message for a cheque of one card, with credentials; enqueued now, due now.
    [[nodiscard]] static QueueMessage makeMessage(const QString &id);
    void givenMessage(const QueueMessage &message);
    void givenMessage(const QString &id, MessageState state = MessageState::Pending);
    /// A message in the spill file, and no room to take it in: something is in the ballast's way.
    void givenSpilled(const QueueMessage &message);
    /// From now on there is room.
    void givenRoom();
    /// Runs `korvel-till queue` with these words and the state folder.
    void whenAsked(const QStringList &words);
    /// The same with `--json`; what it printed.
    nlohmann::json whenAskedForJson(const QStringList &words);

    [[nodiscard]] QString stateFolder() const { return path(QStringLiteral("state")); }
    [[nodiscard]] QString databaseFile() const;
    /// The message as it is now; an empty one when there is none of that id.
    [[nodiscard]] QueueMessage message(const QString &id) const;
    [[nodiscard]] QString stateOf(const QString &id) const;
    [[nodiscard]] QString outputText() const { return QString::fromUtf8(output); }

    static const QString card;
    static const QString credentials;
};

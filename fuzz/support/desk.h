#pragma once

#include "fuzz/support/service.h"

#include "host/storage/documentstore.h"
#include "plugin/korvelloyaltyonline.h"
#include "till/core/frozenclock.h"
#include "till/core/till.h"
#include "till/script/answerline.h"
#include "till/script/interpreter.h"
#include "till/transcript/recorder.h"
#include "till/transcript/recordingservices.h"

namespace fuzz {

/// A till at an empty desk, with everything that `korvel-till run` has but the network: plug-in,
/// queue, printer, journal, and a state folder that begins empty. One at a time.
class Desk
{
public:
    explicit Desk(const Answers &answers);
    ~Desk();
    Q_DISABLE_COPY_MOVE(Desk)

    [[nodiscard]] till::Till &till() { return m_till; }
    /// Who answers the plug-in's dialogs.
    [[nodiscard]] till::AnswerLine &cashier() { return m_cashier; }
    [[nodiscard]] till::Interpreter &interpreter() { return m_interpreter; }

private:
    // In the order in which one needs the other.
    [[maybe_unused]] bool m_isPrepared; ///< the host is fresh
    DocumentStore m_store;
    till::Recorder m_recorder;
    till::AnswerLine m_cashier;
    till::FrozenClock m_clock;
    till::RecordingServices m_services;
    KorvelLoyaltyOnline m_plugin;
    till::Till m_till;
    till::Commands m_commands;
    till::Interpreter m_interpreter;
};

} // namespace fuzz

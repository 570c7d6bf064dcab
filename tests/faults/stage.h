#pragma once

#include "tests/faults/blackhole.h"
#include "tests/faults/certificates.h"
#include "tests/faults/fault.h"
#include "tests/faults/front.h"
#include "tests/faults/machine.h"
#include "tests/restart/books.h"
#include "tests/restart/premises.h"
#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"

#include <QMap>

#include <memory>
#include <optional>

namespace faults {

using restart::Json;

/// A till, its service, and everything between and below them that can fail; nothing sold yet.
class Stage
{
public:
    /// @param tls whether the till speaks TLS with its service.
    explicit Stage(bool tls);

    void startTill();
    /// Ends the till's commands and waits for its end.
    void endTill();
    /// Gives the till a command.
    /// @return its object; nothing when the till ended instead, of which `complaint` tells.
    std::optional<Json> tell(const QString &command);
    /// The same of a command that must be done.
    /// @throws std::runtime_error when the till ended instead.
    Json must(const QString &command);
    /// The till is killed in this command, when the service has acted upon its request.
    void killedIn(const QString &command);
    /// What the till that ended said, with its exit status.
    [[nodiscard]] QString complaint() const { return m_complaint; }
    [[nodiscard]] bool isTillRunning() const { return m_till != nullptr; }
    /// The open document; null at an empty desk.
    Json openDocument();

    /// The fault begins. Those of files and of the time zone need a till that is switched off.
    void strike(Kind kind);
    /// It ends. Files that nobody has replaced since are as before.
    void heal();
    /// Whether something has met the fault.
    [[nodiscard]] bool isMet() const;
    /// The file that a damage is done to, below the state folder.
    void setDamagedFile(const QString &name) { m_damagedFile = name; }

    /// Exchanges that the till has begun, as its commands say.
    [[nodiscard]] int exchanges() const { return m_exchanges; }
    /// The messages of the queue that are not delivered, each with its state.
    [[nodiscard]] QStringList undelivered() const;
    /// Books as they stand, with no till running.
    [[nodiscard]] restart::Books books() const;
    /// Sales and returns at the service.
    [[nodiscard]] Json transactions() const;
    [[nodiscard]] QString stateFolder() const { return m_premises.state(); }

    [[nodiscard]] Front &front() const { return *m_front; }
    [[nodiscard]] Machine &machine() { return m_machine; }
    /// Sets a value of the till's settings for the tills that are started from now on.
    void configure(const QByteArray &settings) const;

private:
    void noteEnd();
    void damage(Kind kind);
    /// False for a fault that is none of the clock's.
    bool turnClock(Kind kind);
    [[nodiscard]] QString damagedPath() const;

    restart::Premises m_premises;
    Certificates m_certificates;
    restart::Service m_service;
    Machine m_machine;
    BlackHole m_blackHole;
    restart::Socket m_refusingPort = restart::Socket::onFreePort();
    std::unique_ptr<Front> m_front;
    std::unique_ptr<restart::TillProcess> m_till;
    QString m_complaint;
    QString m_damagedFile;
    QByteArray m_undamaged;
    QByteArray m_damaged;
    bool m_isTurned = false; ///< clock, zone or file
    int m_exchanges = 0;
    std::vector<restart::TillEnd> m_ends;
};

} // namespace faults

#pragma once

#include <QByteArray>
#include <QString>

#include <mutex>
#include <vector>

namespace kills {

/// What a request is backed by on the till's disk at the moment when it goes out.
enum class Backing
{
    Question, ///< it moves nothing, so nothing need be written down
    Document, ///< the open document says that its booking, return or rollback has begun
    Message, ///< a message of the queue for this very document is noted as being sent
    Nothing
};

/// A request that was seen on the wire.
struct Sighting
{
    QByteArray body;
    Backing backing = Backing::Nothing;
    QString message; ///< id, where a message backs it
    int step = 0; ///< in which the till asked
};

/// Sees every request on its way to the service and looks at once what the till's disk says about
/// it. May be called from any thread.
class Witness
{
public:
    explicit Witness(const QString &stateFolder)
        : m_stateFolder(stateFolder)
    { }

    /// The till is given another command: what it asks from now on is another step.
    void nextStep();
    /// @param request head and body.
    void see(const QByteArray &request);
    [[nodiscard]] std::vector<Sighting> sightings() const;

private:
    [[nodiscard]] Sighting lookedAt(const QByteArray &body) const;
    [[nodiscard]] bool isBegun(const QByteArray &body) const;

    const QString m_stateFolder;
    mutable std::mutex m_mutex;
    std::vector<Sighting> m_sightings;
    int m_step = 0;
};

} // namespace kills

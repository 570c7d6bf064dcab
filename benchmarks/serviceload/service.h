#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <chrono>

namespace serviceload {

/// korvel-service as a child with its books in memory and a card for each till.
class Service
{
public:
    /// @throws std::runtime_error when it cannot be started.
    Service(const QString &program, int cards);
    ~Service();
    Q_DISABLE_COPY_MOVE(Service)

    [[nodiscard]] quint16 port() const { return m_port; }
    /// Resident memory.
    [[nodiscard]] qint64 kibibytes() const;
    [[nodiscard]] std::chrono::milliseconds processorTime() const;

    /// The number of the card of a till, counted from 0.
    [[nodiscard]] static QString cardNumber(int till);

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    quint16 m_port = 0;
};

/// What the calling process has used.
[[nodiscard]] std::chrono::milliseconds ownProcessorTime();

} // namespace serviceload

#pragma once

#include "tests/faults/fault.h"
#include "tests/faults/machine/control.h"

#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryFile>

namespace faults {

/// The machine that a till runs on, as far as faults of it can be ordered while the till runs.
class Machine
{
public:
    /// @param stateFolder of the till.
    explicit Machine(const QString &stateFolder);
    ~Machine();
    Q_DISABLE_COPY_MOVE(Machine)

    /// What the till must be started with for the orders to reach it.
    [[nodiscard]] const QProcessEnvironment &environment() const { return m_environment; }
    /// Adds a variable for the tills that are started from now on.
    void set(const char *variable, const QString &value);

    /// Orders, and what was counted.
    [[nodiscard]] MachineControl &control() const { return *m_control; }
    /// Orders a fault.
    /// @param refusingPort of the loopback address, where nobody listens.
    /// @param silentPort   where no connection comes about.
    /// @return false for a fault that is none of the machine's.
    [[nodiscard]] bool order(Kind kind, quint16 refusingPort, quint16 silentPort) const;
    /// Takes all orders back.
    void heal() const;

private:
    QTemporaryFile m_file;
    MachineControl *m_control = nullptr;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};

} // namespace faults

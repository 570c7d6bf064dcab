#pragma once

#include "tests/emulator/support/serviceprocess.h"

#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace emulator {

/// The program as a recorder before some service, with a folder of its own for what it writes. A
/// test that looks into the recording ends the recorder first: an exchange is written after its
/// till has the answer.
class RecorderProcess
{
public:
    explicit RecorderProcess(const QString &upstream, const QStringList &more = {});

    QString url() const { return m_process->url(); }
    ServiceProcess &process() { return *m_process; }

    QString folder() const { return m_directory.filePath(QStringLiteral("recording")); }
    QStringList files() const; ///< names, sorted
    QByteArray file(const QString &name) const; ///< of the recording
    QByteArray errors() const; ///< standard error so far

    /// Ends it and starts another one on the same folder.
    void startAgain(const QStringList &more = {});

private:
    const QString m_upstream;
    const QTemporaryDir m_directory;
    std::unique_ptr<ServiceProcess> m_process;
};

/// The content of a file; empty when there is none.
QByteArray contentOf(const QString &path);

} // namespace emulator

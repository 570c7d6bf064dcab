#include "tests/emulator/recording/support/recorder.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

RecorderProcess::RecorderProcess(const QString &upstream, const QStringList &more)
    : m_upstream(upstream)
{
    startAgain(more);
}

void RecorderProcess::startAgain(const QStringList &more)
{
    m_process.reset();
    m_process = std::make_unique<ServiceProcess>(
        QStringList{u"record"_s, u"--upstream"_s, m_upstream, u"--out"_s, folder()} + more,
        m_directory.filePath(u"errors"_s));
}

QStringList RecorderProcess::files() const
{
    return QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

QByteArray RecorderProcess::file(const QString &name) const
{
    return contentOf(QDir(folder()).filePath(name));
}

QByteArray RecorderProcess::errors() const
{
    return contentOf(m_directory.filePath(u"errors"_s));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace emulator

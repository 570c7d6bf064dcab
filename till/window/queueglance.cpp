#include "till/window/queueglance.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QList<MessageState> states{MessageState::Pending, MessageState::Sending,
    MessageState::Delivered, MessageState::Refused, MessageState::Parked};

QueueOffice::Status statusFrom(const QJsonObject &object)
{
    QueueOffice::Status status;
    const QJsonObject counts = object.value("counts"_L1).toObject();
    for (const MessageState state : states)
        status.counts[state] = counts.value(stateName(state)).toInteger();
    status.moved = object.value("moved"_L1).toInteger();
    status.unreached = {tr::undefined, object.value("unreached"_L1).toString()};
    const QString oldest = object.value("oldest"_L1).toString();
    status.oldestWaiting = QDateTime::fromString(oldest, Qt::ISODateWithMs);
    return status;
}

} // namespace

QueueGlance::QueueGlance(const QString &program, const RunOptions &options)
{
    QStringList arguments{u"queue"_s, u"status"_s, u"--json"_s};
    if (!options.configFile.isEmpty())
        arguments << u"--config"_s << options.configFile;
    if (!options.stateFolder.isEmpty())
        arguments << u"--state"_s << options.stateFolder;
    m_process.setProgram(program);
    m_process.setArguments(arguments);
    connect(&m_process, &QProcess::finished, this, &QueueGlance::read);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            Q_EMIT failed(m_process.errorString());
    });
}

QueueGlance::~QueueGlance()
{
    m_process.disconnect();
    m_process.kill();
    m_process.waitForFinished();
}

void QueueGlance::look()
{
    if (m_process.state() == QProcess::NotRunning)
        m_process.start(QIODevice::ReadOnly);
}

// Its exit status tells how urgent it is; only without figures it has failed.
void QueueGlance::read()
{
    const auto figures = QJsonDocument::fromJson(m_process.readAllStandardOutput());
    if (figures.isObject())
        Q_EMIT seen(statusFrom(figures.object()));
    else
        Q_EMIT failed(QString::fromUtf8(m_process.readAllStandardError()).simplified());
}

} // namespace till

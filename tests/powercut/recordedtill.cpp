#include "tests/powercut/flushes.h"
#include "tests/powercut/recording.h"
#include "tests/restart/premises.h"
#include "tests/restart/service.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace powercut {

// The folder with the transcript is the recorded one, and the state folder is in it.
std::vector<FlushStep> flushesOf(const QString &script)
{
    const QString transcript = u"transcript"_s;
    const restart::Premises premises({});
    const restart::Service service(premises);
    premises.setLoyaltyPort(premises.servicePort());
    const Recording recording = record(QStringLiteral(POWERCUT_TILL),
        {u"run"_s, u"--config"_s, premises.settings(), u"--plugin"_s,
            QStringLiteral(POWERCUT_PLUGIN), u"--state"_s, u"FOLDER/state"_s, u"--transcript"_s,
            u"FOLDER/"_s + transcript, QDir().absoluteFilePath(script)});
    return flushSteps(recording.records, transcript.toUtf8());
}

} // namespace powercut

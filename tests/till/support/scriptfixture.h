#pragma once

#include "tests/till/support/tillfixture.h"
#include "till/core/frozenclock.h"
#include "till/script/answerline.h"
#include "till/script/commands.h"
#include "till/script/interpreter.h"
#include "till/transcript/recorder.h"
#include "till/transcript/recordingservices.h"

#include <QString>
#include <QStringList>

/// A till that takes command lines, with the recording services in place.
class ScriptFixture : public TillFixture
{
public:
    ScriptFixture()
        : services(recorder, answers)
        , commands(*till, answers, clock)
        , interpreter(*till, commands, answers, recorder)
    {
        interpreter.addObserver([this](const till::ExecutedCommand &, const till::Json &object) {
            objects.append(object);
        });
    }

    /// Executes one line, the next one of its script.
    std::optional<QString> whenExecuted(const QString &line)
    {
        return interpreter.execute(++lines, line);
    }
    /// The object of the last command that wrote one.
    [[nodiscard]] const till::Json &object() const { return objects.constLast(); }
    [[nodiscard]] QString whyNotExecuted(const QString &line)
    {
        return whyNot([&] { whenExecuted(line); });
    }

    till::Recorder recorder;
    till::AnswerLine answers;
    till::FrozenClock clock;
    till::RecordingServices services;
    till::Commands commands;
    till::Interpreter interpreter;
    QList<till::Json> objects;
    int lines = 0;
};

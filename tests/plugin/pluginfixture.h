#pragma once

#include "common/exceptions.h"
#include "common/names.h"
#include "tests/plugin/observedplugin.h"
#include "tests/plugin/story.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

/// How failed comparisons of texts are told.
void PrintTo(const QString &text, std::ostream *stream);

/// The plug-in in a host of doubles. Settings and documents are given first; the plug-in is made
/// when it is first used.
class PluginFixture : public testing::Test, protected HostFixture
{
protected:
    using Map = QMap<QString, QVariant>;

    PluginFixture();
    ~PluginFixture() override;

    /// A sale with a card on it is the current document.
    void givenSaleWithCard();
    void givenAnswer(const Map &result, bool tooFewPoints = false);
    template <typename Exception> void givenFailure(const QString &text)
    {
        givenThrown(Exception(tr::Tr(tr::undefined, text)));
    }
    template <typename Exception> void givenThrown(const Exception &exception)
    {
        client().answers.append({{}, std::make_exception_ptr(exception), false});
    }
    void givenStored(const QString &key, const QVariant &value);
    void givenFormAnswer(const core::BasicDialog::Result &answer) { m_formAnswer = answer; }
    /// Whether the first choice is taken when the cashier is asked.
    void givenChoice(bool first) { m_takesFirstChoice = first; }
    /// What happens while a message is shown.
    void givenWhileShown(std::function<void()> action) { m_whileShown = std::move(action); }

    ObservedPlugin &plugin();
    ScriptedClient &client() { return *m_client; }
    const Story &story() const { return m_story; }
    [[nodiscard]] QVariant stored(const QString &key) const;
    [[nodiscard]] Map chequeData() const;
    static QDateTime now();

    void thenSteps(const QStringList &expected) const;
    void thenLogged(const QString &level, const QString &text) const;
    void thenNothingHappened() const { thenSteps({}); }
    /// The one dialog of the test.
    void thenDialog(const QString &id, const QString &text) const;
    void thenLastError(const QString &text);

private:
    void installDoubles();
    void removeDoubles();

    Story m_story;
    LogCapture m_log;
    QSharedPointer<ScriptedClient> m_client;
    core::BasicDialog::Result m_formAnswer;
    bool m_takesFirstChoice = true;
    std::function<void()> m_whileShown;
    std::unique_ptr<RecordingListener> m_listener;
    std::unique_ptr<ObservedPlugin> m_plugin;
};

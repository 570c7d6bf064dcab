#include "tests/powercut/messagebooks.h"

namespace powercut {

void MessageBooks::note(const QStringList &words)
{
    const QString &word = words.first();
    const int message = words.value(1).toInt();
    if (word == u"enqueued")
        messages[message];
    if (word == u"attempted") {
        ++messages[message].attempts;
        m_underway[message] = words.value(2);
    }
    if (word != u"passed")
        return;
    for (const auto &[name, outcome] : m_underway)
        messages[name].outcome = outcome;
    m_underway.clear();
}

} // namespace powercut

#include "host/framework/activitynotifier.h"

#include "host/storage/journal.h"

using namespace Qt::Literals::StringLiterals;

template class Singleton<ActivityNotifier>;

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener *listener)
{
    if (!m_listeners.contains(listener))
        m_listeners.append(listener);
}

namespace {

QString nameOf(EActivityListener::Event code)
{
    switch (code) {
    case EActivityListener::ChequeClosed:
        return u"ChequeClosed"_s;
    case EActivityListener::ChequeCancelled:
        return u"ChequeCancelled"_s;
    case EActivityListener::DocumentEntered:
        return u"DocumentEntered"_s;
    case EActivityListener::LoyaltyRequestStarted:
        return u"LoyaltyRequestStarted"_s;
    case EActivityListener::LoyaltyRequestFinished:
        return u"LoyaltyRequestFinished"_s;
    case EActivityListener::LoyaltyError:
        return u"LoyaltyError"_s;
    }
    return {};
}

} // namespace

void ActivityNotifier::notify(const Event &event)
{
    Journal::append(u"event"_s,
        {{u"code"_s, static_cast<int>(event.getCode())}, {u"name"_s, nameOf(event.getCode())},
            {u"arguments"_s, event.getArguments()}});
    // A copy: a listener may subscribe another one while the event is on its way.
    const auto listeners = m_listeners;
    for (const auto &listener : listeners)
        if (listener)
            listener->handleEvent(event);
}

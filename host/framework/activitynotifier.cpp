#include "host/framework/activitynotifier.h"

template class Singleton<ActivityNotifier>;

ActivityNotifier::~ActivityNotifier() = default;

void ActivityNotifier::subscribe(BaseActivityListener *listener)
{
    if (!m_listeners.contains(listener))
        m_listeners.append(listener);
}

void ActivityNotifier::notify(const Event &event)
{
    // A copy: a listener may subscribe another one while the event is on its way.
    const auto listeners = m_listeners;
    for (const auto &listener : listeners)
        if (listener)
            listener->handleEvent(event);
}

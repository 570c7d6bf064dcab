#pragma once

#include "host/export.h"
#include "host/framework/baseactivitylistener.h"
#include "host/framework/singleton.h"

#include <QList>
#include <QPointer>

/// Delivers activity events to their listeners and keeps them in the till's journal.
///
/// `Singleton<ActivityNotifier>::instance()`. Events are delivered at once, on the caller's thread,
/// in the order of subscription; an event that a listener sends is delivered before the first one
/// goes on to the next listener. Listeners are not owned; a destroyed one is dropped.
class POSHOST_EXPORT ActivityNotifier
{
public:
    ActivityNotifier() = default;
    virtual ~ActivityNotifier();
    Q_DISABLE_COPY_MOVE(ActivityNotifier)

    /// Adds a listener behind those already there; one that is there already stays where it is.
    virtual void subscribe(BaseActivityListener *listener);
    /// Appends the event to the journal, then delivers it. What a listener throws reaches the
    /// caller; listeners behind it have then not seen the event.
    virtual void notify(const Event &event);

private:
    QList<QPointer<BaseActivityListener>> m_listeners;
};

extern template class POSHOST_EXPORT Singleton<ActivityNotifier>;

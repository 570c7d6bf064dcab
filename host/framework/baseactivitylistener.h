#pragma once

#include "host/export.h"
#include "host/framework/event.h"

#include <QObject>

/// A receiver of activity events. Subscribed at the `ActivityNotifier`, which does not own it.
class POSHOST_EXPORT BaseActivityListener : public QObject
{
    Q_OBJECT

public:
    explicit BaseActivityListener(QObject *parent = nullptr);
    ~BaseActivityListener() override;

    /// Called on the host's thread for every event sent, in the order of subscription.
    virtual void handleEvent(const Event &event) = 0;
};

#pragma once

#include "host/framework/baseactivitylistener.h"
#include "till/window/busyveil.h"

namespace till {

/// Puts the veil up and takes it down as the events of a loyalty request tell, and lets it count
/// the seconds of an exchange. In place while it lives; one at a time.
class BusyWatch : public BaseActivityListener
{
    Q_OBJECT

public:
    /// @param veil not owned; must outlive this.
    explicit BusyWatch(BusyVeil &veil);
    ~BusyWatch() override;

    void handleEvent(const Event &event) override;

private:
    BusyVeil &m_veil;
};

} // namespace till

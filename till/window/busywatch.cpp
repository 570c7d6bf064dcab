#include "till/window/busywatch.h"

#include "host/framework/activitynotifier.h"
#include "host/net/exchangeprogress.h"

using namespace Qt::StringLiterals;

namespace till {

BusyWatch::BusyWatch(BusyVeil &veil)
    : m_veil(veil)
{
    Singleton<ActivityNotifier>::instance()->subscribe(this);
    setExchangeProgress([this](std::chrono::milliseconds passed) {
        m_veil.tick(std::chrono::duration_cast<std::chrono::seconds>(passed));
    });
}

BusyWatch::~BusyWatch()
{
    setExchangeProgress({});
}

void BusyWatch::handleEvent(const Event &event)
{
    if (event.getCode() == EActivityListener::LoyaltyRequestStarted)
        m_veil.begin(event.getArguments().value(u"message"_s).value<tr::Tr>());
    else if (event.getCode() == EActivityListener::LoyaltyRequestFinished)
        m_veil.end();
}

} // namespace till

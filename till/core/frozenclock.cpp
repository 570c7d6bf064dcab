#include "till/core/frozenclock.h"

#include "host/framework/currenttime.h"

namespace till {

namespace {

class FreezableTime : public CurrentTime
{
public:
    explicit FreezableTime(const QDateTime &frozen)
        : m_frozen(frozen)
    { }

    [[nodiscard]] QDateTime currentDateTime() const override
    {
        return m_frozen.isValid() ? m_frozen : CurrentTime::currentDateTime();
    }

private:
    const QDateTime &m_frozen;
};

} // namespace

FrozenClock::FrozenClock()
{
    MockFactory<CurrentTime>::setCreator([this]() -> QSharedPointer<CurrentTime> {
        return QSharedPointer<FreezableTime>::create(m_time);
    });
}

FrozenClock::~FrozenClock()
{
    MockFactory<CurrentTime>::setCreator({});
}

} // namespace till

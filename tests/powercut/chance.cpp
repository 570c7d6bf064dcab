#include "tests/powercut/chance.h"

namespace powercut {

namespace {

constexpr quint32 fates = 3;
constexpr quint32 sides = 2;

} // namespace

Chance::Chance(quint32 seed)
    : m_random(seed)
    , m_temper(static_cast<Temper>(below(static_cast<quint32>(Temper::Count))))
{ }

// The standard's distributions differ between libraries; their generators do not.
quint32 Chance::below(quint32 count)
{
    return static_cast<quint32>(m_random()) % count;
}

Fate Chance::ofWrite()
{
    if (m_temper == Temper::Nothing)
        return Fate::Lost;
    return m_temper == Temper::Everything ? Fate::Kept : static_cast<Fate>(below(fates));
}

bool Chance::ofChange()
{
    if (m_temper != Temper::Mixed)
        return m_temper == Temper::Everything;
    return ofSector();
}

bool Chance::ofSector()
{
    return below(sides) == 0;
}

std::size_t Chance::ofRow(std::size_t changes)
{
    if (m_temper != Temper::Mixed)
        return m_temper == Temper::Everything ? changes : 0;
    return below(static_cast<quint32>(changes) + 1);
}

} // namespace powercut

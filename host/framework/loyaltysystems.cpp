#include "host/framework/loyaltysystems.h"

#include "host/framework/basicloyaltysystem.h"

#include <algorithm>

template class Singleton<LoyaltySystems>;

bool LoyaltySystems::add(BasicLoyaltySystem *system)
{
    const bool known = std::any_of(m_systems.cbegin(), m_systems.cend(), [system](auto *other) {
        return other == system || other->getPluginName() == system->getPluginName();
    });
    if (!known)
        m_systems.append(system);
    return !known;
}

void LoyaltySystems::remove(BasicLoyaltySystem *system)
{
    m_systems.removeOne(system);
}

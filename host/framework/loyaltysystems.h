#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"

#include <QList>

class BasicLoyaltySystem;

/// The loyalty systems that plug-ins have registered. `Singleton<LoyaltySystems>::instance()`.
///
/// Does not own them; a system takes itself out when it is destroyed.
class POSHOST_EXPORT LoyaltySystems
{
public:
    LoyaltySystems() = default;
    Q_DISABLE_COPY_MOVE(LoyaltySystems)

    /// False when that system or one with the same plug-in name is there already.
    bool add(BasicLoyaltySystem *system);
    void remove(BasicLoyaltySystem *system);
    /// In the order of registration.
    [[nodiscard]] QList<BasicLoyaltySystem *> all() const { return m_systems; }

private:
    QList<BasicLoyaltySystem *> m_systems;
};

extern template class POSHOST_EXPORT Singleton<LoyaltySystems>;

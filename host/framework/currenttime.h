#pragma once

#include "host/export.h"
#include "host/framework/mockfactory.h"

#include <QDateTime>

/// The host's clock. `MockFactory<CurrentTime>::create()`; tests and the till's `clock` replace it.
class POSHOST_EXPORT CurrentTime
{
public:
    CurrentTime() = default;
    virtual ~CurrentTime();
    Q_DISABLE_COPY_MOVE(CurrentTime)

    /// Local date and time.
    [[nodiscard]] virtual QDateTime currentDateTime() const;
};

extern template class POSHOST_EXPORT MockFactory<CurrentTime>;

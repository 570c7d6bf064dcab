#pragma once

#include <QUrl>

/// A name server that keeps silent: while this lives, looking up the host of `url` does not return.
/// Other names are looked up as ever.
class SilentNameServer
{
public:
    SilentNameServer();
    /// Lets the look-ups fail and waits until they have.
    ~SilentNameServer();
    Q_DISABLE_COPY_MOVE(SilentNameServer)

    [[nodiscard]] static QUrl url();
};

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

/// A name server that knows one name, which leads to the loopback address, and counts how often it
/// is asked while this lives.
class CountingNameServer
{
public:
    CountingNameServer();
    ~CountingNameServer() = default;
    Q_DISABLE_COPY_MOVE(CountingNameServer)

    /// That address by its name.
    [[nodiscard]] static QUrl named(QUrl url);
    [[nodiscard]] int lookups() const;

private:
    int m_before;
};

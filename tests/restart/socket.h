#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <utility>

namespace restart {

/// A TCP socket of the loopback address, closed with the object. Calls block.
class Socket
{
public:
    /// How reading came to an end.
    enum class Received
    {
        Bytes,
        End, ///< the peer has closed the connection in order
        Broken ///< the peer has reset it
    };

    Socket() = default;
    explicit Socket(int descriptor)
        : m_descriptor(descriptor)
    { }
    Socket(Socket &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    { }
    Socket &operator=(Socket &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~Socket();
    Q_DISABLE_COPY(Socket)

    /// A free port, taken for as long as the object lives. Nobody listens on it, so connections to
    /// it are refused; a server that allows its address to be reused can listen there all the same.
    /// The system gives the port to nobody else meanwhile, also while that server is away.
    /// @throws std::runtime_error when there is none.
    static Socket onFreePort();
    /// An invalid one when nobody listens there.
    static Socket connectedTo(quint16 port);

    /// @throws std::runtime_error when that is not possible.
    void listen();
    /// The next connection; an invalid one after `endListening`.
    [[nodiscard]] Socket accept() const;
    /// From any thread.
    void endListening() const;

    [[nodiscard]] bool isValid() const { return m_descriptor >= 0; }
    /// For calls that are not here; it stays the object's.
    [[nodiscard]] int descriptor() const { return m_descriptor; }
    [[nodiscard]] quint16 port() const;
    /// Appends what has come.
    Received receive(QByteArray &bytes) const;
    /// What a peer that has gone does not take is dropped.
    void send(const QByteArray &bytes) const;
    /// The peer sees a reset instead of an end when the object dies.
    void resetOnClose() const;

private:
    int m_descriptor = -1;
};

} // namespace restart

#include "emulator/console/console.h"

#include "emulator/embedded.h"

#include <QRandomGenerator>

#include <array>

namespace emulator {

namespace {

QByteArray randomText()
{
    std::array<quint32, 4> numbers{};
    QRandomGenerator::system()->generate(numbers.begin(), numbers.end());
    return QByteArray(reinterpret_cast<const char *>(numbers.data()), sizeof(numbers)).toHex();
}

// Nothing is loaded but the page's own style and script, and nothing may hold the page in a frame.
QByteArray policy(const QByteArray &nonce)
{
    return "default-src 'none'; script-src 'nonce-" + nonce + "'; style-src 'nonce-" + nonce
        + "'; img-src data:; connect-src 'self'; base-uri 'none'; form-action 'none'; "
          "frame-ancestors 'none'";
}

} // namespace

Console::Console()
    : m_token(randomText())
{ }

HttpReply Console::page() const
{
    const QByteArray nonce = randomText();
    HttpReply reply;
    reply.contentType = "text/html; charset=utf-8";
    reply.body = embedded::consolePage();
    reply.body.replace("@style@", embedded::consoleStyle())
        .replace("@script@", embedded::consoleScript())
        .replace("@version@", embedded::version())
        .replace("@token@", m_token)
        .replace("@nonce@", nonce);
    reply.headers = {{"Content-Security-Policy", policy(nonce)},
        {"X-Content-Type-Options", "nosniff"}, {"X-Frame-Options", "DENY"},
        {"Referrer-Policy", "no-referrer"}, {"Cache-Control", "no-store"}};
    return reply;
}

} // namespace emulator

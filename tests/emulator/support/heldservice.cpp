#include "tests/emulator/support/heldservice.h"

#include "tests/emulator/support/httpclient.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

HeldService::HeldService()
    : m_server({u"127.0.0.1"_s, 0}, {},
        {[] { return Reception(); },
            [this](const HttpRequest &request, const Respond &respond) { take(request, respond); }})
    , m_url(m_server.url())
    , m_thread([this] { m_server.run(); })
{ }

HeldService::~HeldService()
{
    httpPost(url() + u"end"_s, "");
    m_thread.join();
}

HeldService::Asked HeldService::next()
{
    std::unique_lock lock(m_mutex);
    m_hasCome.wait(lock, [this] { return !m_asked.empty(); });
    Asked asked = std::move(m_asked.front());
    m_asked.pop_front();
    return asked;
}

void HeldService::take(const HttpRequest &request, const Respond &respond)
{
    if (request.target == u"/end" || request.target == u"/at-once") {
        HttpReply reply = textReply(200, u"at once"_s);
        reply.endsService = request.target == u"/end";
        respond(reply);
        return;
    }
    const std::lock_guard lock(m_mutex);
    m_asked.push_back({request, respond});
    m_hasCome.notify_one();
}

} // namespace emulator

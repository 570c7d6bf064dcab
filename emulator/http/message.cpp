#include "emulator/http/message.h"

namespace emulator {

EventSource::~EventSource() = default;

HttpReply textReply(int status, const QString &text)
{
    HttpReply reply;
    reply.status = status;
    reply.contentType = "text/plain; charset=utf-8";
    reply.body = text.toUtf8() + '\n';
    return reply;
}

} // namespace emulator

// Any bytes as a line of a file with messages of the queue: it is read or not; a message that is
// read is written as it was read, and can be shown.

#include "fuzz/measure.h"

#include "host/queue/messagejson.h"
#include "till/queue/messageobject.h"
#include "till/queue/messagetext.h"

namespace {

bool useMessage(const QByteArray &input)
{
    const auto message = messagejson::read(input);
    if (!message)
        return false;
    const QByteArray line = messagejson::line(*message);
    const auto again = messagejson::read(line);
    fuzz::require(again.has_value(), "a message that was written can be read");
    fuzz::require(messagejson::line(*again) == line, "a message is kept as it was read");
    (void)till::listedMessage(*message).dump();
    (void)till::wholeMessage(*message).dump();
    (void)till::messageText(*message);
    (void)till::reasonText(*message);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, useMessage);
}

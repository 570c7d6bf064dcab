// Any bytes as a till's request: the guard, the parser, the validator and the reader must survive
// them and refuse what does not fit with the one error that becomes a fault.

#include "fuzz/measure.h"

#include "emulator/soap/requestreader.h"

namespace {

bool readRequest(const QByteArray &input)
{
    static const emulator::MessageSchema schema;
    try {
        const emulator::XmlDocument document = emulator::XmlDocument::parse(input);
        emulator::readRequest(document, schema);
    } catch (const emulator::RequestError &) {
        return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, readRequest);
}

// Any bytes as a till's request: the guard, the parser, the validator and the reader must survive
// them and refuse what does not fit with the one error that becomes a fault. With
// REQUEST_FUZZ_SHARES set it tells at its end how far the inputs got.

#include "fuzz/xmlmutator.h"

#include "emulator/soap/requestreader.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

/// How many inputs reached each stage.
class Shares
{
public:
    ~Shares()
    {
        if (!std::getenv("REQUEST_FUZZ_SHARES") || m_all == 0)
            return;
        constexpr double wholePercent = 100.0;
        const auto percent = [&](unsigned long long count) {
            return wholePercent * static_cast<double>(count) / static_cast<double>(m_all);
        };
        std::fprintf(stderr, "%llu inputs, %.2f %% were XML, %.2f %% a request\n", m_all,
            percent(m_xml), percent(m_requests));
    }

    void countInput() { ++m_all; }
    void countXml() { ++m_xml; }
    void countRequest() { ++m_requests; }

private:
    unsigned long long m_all = 0;
    unsigned long long m_xml = 0;
    unsigned long long m_requests = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const emulator::MessageSchema schema;
    static Shares shares;
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    shares.countInput();
    try {
        const emulator::XmlDocument document = emulator::XmlDocument::parse(bytes);
        shares.countXml();
        emulator::readRequest(document, schema);
        shares.countRequest();
    } catch (const emulator::RequestError &) {
        // What cannot be taken.
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t greatest);

/// Mostly whole elements, sometimes any bytes: the parser must be tried too.
extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    constexpr unsigned int bytesOnceIn = 32;
    const std::size_t mutated
        = seed % bytesOnceIn == 0 ? 0 : mutateXml(data, size, greatest, seed / bytesOnceIn);
    return mutated > 0 ? mutated : LLVMFuzzerMutate(data, size, greatest);
}

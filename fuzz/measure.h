#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>

/// What a fuzz target's inputs came to.
///
/// With the variable KORVEL_FUZZ_TALLY the numbers stand in the file that it names, where they
/// outlive a crash and the next run goes on counting, several at once too; otherwise they are only
/// in memory.
namespace fuzz {

/// The file of the variable KORVEL_FUZZ_TALLY, as it stands there.
struct Tally
{
    std::uint64_t executions = 0;
    std::uint64_t pastParser = 0; ///< inputs that got past the target's parser
    std::uint64_t slowestMicroseconds = 0; ///< of processor time
};

/// Does what the target does with an input; true when the input got past its parser.
using Target = bool (*)(const QByteArray &input);

/// Runs the target on one input and counts. An input that takes more processor time than the
/// variable KORVEL_FUZZ_MILLISECONDS allows ends the process with SIGABRT, which a fuzzer takes for
/// a finding; one that looks slow is run again first, and the shortest of three times counts. What
/// a target does only once is done before, with an empty input.
/// @return 0, as a fuzzer's entry point does.
int measure(const std::uint8_t *data, std::size_t size, Target target);

/// The numbers of this process, or of the file.
[[nodiscard]] const Tally &tally();

/// One of the inputs of this process that got past the parser, chosen by the seed among those that
/// are remembered; empty before the first.
[[nodiscard]] QByteArray acceptedInput(unsigned int seed);

/// Ends the process with SIGABRT when what a target promises does not hold.
void require(bool holds, const char *promise);

} // namespace fuzz

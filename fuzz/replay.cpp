// Runs a fuzz target on files that are there, with any compiler: its seeds, and what once was a
// finding.

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

void replay(const std::filesystem::path &file)
{
    // Before, so that the last one named is the one that a crash is from.
    std::cerr << file.native() << '\n';
    std::ifstream stream(file, std::ios::binary);
    const std::string input(std::istreambuf_iterator<char>(stream), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}

int replayAll(const std::filesystem::path &path)
{
    if (std::filesystem::is_regular_file(path)) {
        replay(path);
        return 1;
    }
    int count = 0;
    for (const auto &entry : std::filesystem::directory_iterator(path))
        if (entry.is_regular_file()) {
            replay(entry.path());
            ++count;
        }
    return count;
}

} // namespace

int main(int argc, char **argv)
{
    int count = 0;
    for (int argument = 1; argument < argc; ++argument)
        count += replayAll(argv[argument]);
    std::cerr << count << " inputs\n";
    return count > 0 ? 0 : 1;
}

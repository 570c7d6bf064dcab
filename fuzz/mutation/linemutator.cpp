#include "fuzz/mutation/linemutator.h"

#include "fuzz/mutation/mutate.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

namespace {

using Texts = std::vector<std::string>;

/// Words at the edges of what a number, a name, a mask or a list may be.
constexpr const char *edges[] = {"0", "1", "2", "-1", "0.001", "0.0049", "999999999", "2147483647",
    "2147483648", "99999999999999999999", "1e5", "''", "\"", "\\", "=", "x=", "[", "]", "#", ";",
    ",", ",,", "true", "false", "real", "2026-02-30T12:00:00", "2026-03-01T12:30:00", "${number}",
    "${", "$${", "${}", "*", "\xd0\xa5\xd0\xbb\xd0\xb5\xd0\xb1", "\xe2\x80\x93\xe2\x80\x93"};

Texts split(const std::string &text, char separator)
{
    Texts parts;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t end = text.find(separator, begin);
        parts.push_back(text.substr(begin, end - begin));
        if (end == std::string::npos)
            return parts;
        begin = end + 1;
    }
}

std::string joined(const Texts &parts, char separator)
{
    std::string text = parts.empty() ? std::string() : parts.front();
    for (std::size_t index = 1; index < parts.size(); ++index)
        text += separator + parts[index];
    return text;
}

bool isAscii(const std::string &text)
{
    return std::all_of(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

class Mutation
{
public:
    Mutation(Texts &lines, unsigned int seed)
        : m_lines(lines)
        , m_random(seed)
    { }

    void apply()
    {
        using Step = void (Mutation::*)();
        constexpr Step steps[] = {&Mutation::setWord, &Mutation::setWord, &Mutation::copyWord,
            &Mutation::copyWord, &Mutation::mutateWord, &Mutation::mutateWord, &Mutation::addWord,
            &Mutation::removeWord, &Mutation::repeatLine, &Mutation::copyLine,
            &Mutation::removeLine, &Mutation::swapLines};
        const Step step = steps[below(std::size(steps))];
        (this->*step)();
    }

private:
    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
    }

    std::string &anyLine() { return m_lines[below(m_lines.size())]; }
    std::string edge() { return edges[below(std::size(edges))]; }

    /// Changes one word of one line.
    template <typename Change> void changeWord(const Change &change)
    {
        std::string &line = anyLine();
        // Settings have their words at the sign, scripts at blanks.
        const char separator = line.find(' ') == std::string::npos ? '=' : ' ';
        Texts words = split(line, separator);
        change(words, below(words.size()));
        line = joined(words, separator);
    }

    void setWord()
    {
        changeWord([this](Texts &words, std::size_t at) { words[at] = edge(); });
    }

    void copyWord()
    {
        const Texts others = split(anyLine(), ' ');
        const std::string &other = others[below(others.size())];
        changeWord([&other](Texts &words, std::size_t at) { words[at] = other; });
    }

    void mutateWord()
    {
        static constexpr std::size_t longest = 256;
        changeWord([](Texts &words, std::size_t at) {
            std::string &word = words[at];
            const bool wasAscii = isAscii(word);
            const std::size_t size = std::min(word.size(), longest);
            word.resize(longest);
            word.resize(
                LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(word.data()), size, longest));
            // Half of a character would spoil the line.
            if (!wasAscii || !isAscii(word))
                std::replace_if(
                    word.begin(), word.end(),
                    [](char c) { return static_cast<unsigned char>(c) >= 0x80; }, '?');
        });
    }

    void addWord()
    {
        changeWord([this](Texts &words, std::size_t at) {
            words.insert(words.begin() + static_cast<std::ptrdiff_t>(at), edge());
        });
    }

    void removeWord()
    {
        changeWord([](Texts &words, std::size_t at) {
            words.erase(words.begin() + static_cast<std::ptrdiff_t>(at));
        });
    }

    void insertLine(const std::string &line)
    {
        m_lines.insert(
            m_lines.begin() + static_cast<std::ptrdiff_t>(below(m_lines.size() + 1)), line);
    }

    void repeatLine()
    {
        constexpr std::size_t most = 8;
        const std::string line = anyLine();
        for (std::size_t count = below(most) + 1; count > 0; --count)
            insertLine(line);
    }

    void copyLine() { insertLine(anyLine()); }

    void removeLine()
    {
        if (m_lines.size() > 1)
            m_lines.erase(m_lines.begin() + static_cast<std::ptrdiff_t>(below(m_lines.size())));
    }

    void swapLines() { std::swap(anyLine(), anyLine()); }

    Texts &m_lines;
    std::mt19937 m_random;
};

} // namespace

std::size_t mutateLine(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    Texts lines = split(std::string(reinterpret_cast<const char *>(data), size), '\n');
    Mutation(lines, seed).apply();
    const std::string text = joined(lines, '\n');
    if (text.empty() || text.size() > greatest)
        return 0;
    return text.copy(reinterpret_cast<char *>(data), greatest);
}

} // namespace fuzz

#include "fuzz/mutation/jsonmutator.h"

#include "fuzz/mutation/mutate.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace fuzz {

namespace {

using Json = nlohmann::ordered_json;

/// Texts that readers of names, masks and texts trip over.
constexpr const char *textEdges[]
    = {"", "0", "-1", "nan", "open", "closed", "cancelled", "pending", "parked", "{}", "[]",
        "{\"amount\":1}", "[0]", "\\u0000", "\xd0\xa5\xd0\xbb", "a\nb", "\x1b[2J", "${sum}"};

/// Texts that are still times or numbers, where a text was one.
constexpr const char *timeEdges[] = {"2024-03-05T17:04:09.000Z", "0001-01-01T00:00:00.000Z",
    "9999-12-31T23:59:59.999Z", "2024-02-29T24:00:00.000Z", "2024-02-30T00:00:00.000Z",
    "2024-03-05T17:04:09.000+14:00", "2024-03-05"};
constexpr const char *digitEdges[]
    = {"0", "1", "-1", "0.005", "1e400", "2147483648", "9223372036854775808", "-0", "007"};

constexpr double numberEdges[] = {0.0, 1.0, -1.0, 0.005, 0.0049, 1e9, 1e15, -1e15, 2147483647.0,
    2147483648.0, -2147483648.0, 1e-300, 1e300, 9007199254740993.0, 3.0, 23.0};

class Mutation
{
public:
    Mutation(Json &root, unsigned int seed)
        : m_root(root)
        , m_random(seed)
    { }

    void apply()
    {
        using Step = void (Mutation::*)(Json &);
        // Other values of the same kind come further than another shape does.
        constexpr Step steps[] = {&Mutation::setEdge, &Mutation::setEdge, &Mutation::setEdge,
            &Mutation::setEdge, &Mutation::mutateText, &Mutation::mutateText, &Mutation::mutateText,
            &Mutation::mutateText, &Mutation::repeat, &Mutation::repeat, &Mutation::copyOfKind,
            &Mutation::copyOfKind, &Mutation::copyOfKind, &Mutation::damage};
        collect(m_root);
        if (m_inside.empty())
            return;
        const Step step = steps[below(std::size(steps))];
        (this->*step)(any());
    }

private:
    struct Place
    {
        Json *parent = nullptr;
        Json *value = nullptr;
    };

    void collect(Json &parent)
    {
        if (!parent.is_structured())
            return;
        for (Json &value : parent) {
            m_inside.push_back({&parent, &value});
            collect(value);
        }
    }

    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random);
    }

    Json &any()
    {
        m_place = m_inside[below(m_inside.size())];
        return *m_place.value;
    }

    template <std::size_t count> std::string oneOf(const char *const (&texts)[count])
    {
        return texts[below(count)];
    }

    std::string textEdge() { return oneOf(textEdges); }

    /// At the edge of what the text was.
    std::string textEdgeFor(const std::string &text)
    {
        if (text.empty() || text.find_first_not_of("0123456789.-:TZ+") != std::string::npos)
            return textEdge();
        return text.find(':') == std::string::npos ? oneOf(digitEdges) : oneOf(timeEdges);
    }

    Json numberEdge()
    {
        const double number = numberEdges[below(std::size(numberEdges))];
        constexpr auto most = static_cast<double>(std::numeric_limits<std::int32_t>::max());
        if (number
            == static_cast<double>(
                static_cast<std::int64_t>(std::clamp(number, -most - 1.0, most))))
            return static_cast<std::int64_t>(number);
        return number;
    }

    void setEdge(Json &value)
    {
        if (value.is_string())
            value = textEdgeFor(value.get<std::string>());
        else if (value.is_boolean())
            value = !value.get<bool>();
        else if (value.is_number())
            value = numberEdge();
        else if (value.is_array())
            value.clear();
    }

    void mutateText(Json &value)
    {
        constexpr std::size_t longest = 512;
        if (!value.is_string()) {
            setEdge(value);
            return;
        }
        auto text = value.get<std::string>();
        text.resize(std::min(text.size(), longest));
        const std::size_t size = text.size();
        text.resize(longest);
        text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(text.data()), size, longest));
        value = text;
    }

    void repeat(Json &value)
    {
        constexpr std::size_t most = 8;
        // The value stands in what grows. NOLINTNEXTLINE(performance-unnecessary-copy*)
        const Json copy = value;
        Json &parent = *m_place.parent;
        for (std::size_t count = below(most) + 1; count > 0; --count)
            if (parent.is_array())
                parent.push_back(copy);
            else
                parent[std::to_string(parent.size())] = copy;
    }

    [[nodiscard]] std::size_t indexOf(const Json &value) const
    {
        std::size_t index = 0;
        for (const Json &each : *m_place.parent) {
            if (&each == &value)
                return index;
            ++index;
        }
        return index;
    }

    void remove(Json &value)
    {
        Json &parent = *m_place.parent;
        parent.erase(std::next(parent.begin(), static_cast<std::ptrdiff_t>(indexOf(value))));
    }

    /// What stands elsewhere in the input, where it is of one kind with the value.
    void copyOfKind(Json &value)
    {
        const Json copy = any();
        if (copy.type() == value.type())
            value = copy;
    }

    /// What strict readers refuse.
    void damage(Json &value)
    {
        using Step = void (Mutation::*)(Json &);
        constexpr Step steps[] = {&Mutation::remove, &Mutation::rename, &Mutation::setAnyKind};
        const Step step = steps[below(std::size(steps))];
        (this->*step)(value);
    }

    void rename(Json &value)
    {
        Json &parent = *m_place.parent;
        if (!parent.is_object()) {
            mutateText(value);
            return;
        }
        const Json moved = value;
        remove(value);
        parent[textEdge()] = moved;
    }

    void setAnyKind(Json &value)
    {
        switch (below(6)) {
        case 0:
            value = textEdge();
            break;
        case 1:
            value = numberEdge();
            break;
        case 2:
            value = nullptr;
            break;
        case 3:
            value = true;
            break;
        case 4:
            value = Json::array();
            break;
        default:
            value = Json::object();
        }
    }

    Json &m_root;
    std::vector<Place> m_inside;
    Place m_place;
    std::mt19937 m_random;
};

} // namespace

void mutateInside(Json &value, unsigned int seed)
{
    Mutation(value, seed).apply();
}

std::size_t mutateJson(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    Json root = Json::parse(data, data + size, nullptr, false);
    if (root.is_discarded())
        return 0;
    mutateInside(root, seed);
    // Texts that are no UTF-8 any more get U+FFFD where they are not.
    const std::string text = root.dump(-1, ' ', false, Json::error_handler_t::replace);
    if (text.size() > greatest)
        return 0;
    return text.copy(reinterpret_cast<char *>(data), greatest);
}

} // namespace fuzz

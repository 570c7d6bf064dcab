// Makes the program that it is loaded into beforehand a worse one than it is, so that the tests can
// show that they would notice. QUEUE_FAULT names what it then does wrong:
//
//   deferred      its transactions begin without the file, as they do unless one asks for it
//   never-again   a message whose attempt failed counts as delivered
//
// The database's own header is not among what the tree needs to be built; the types of these two
// calls are part of its documented interface.

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

using namespace std::string_view_literals;

bool isFault(std::string_view fault)
{
    const char *named = std::getenv("QUEUE_FAULT");
    return named != nullptr && fault == named;
}

// The database's driver is loaded for itself alone, so its library is behind nobody in the order of
// those that all see.
template <typename Function> Function real(const char *name)
{
    static void *const library = dlopen("libsqlite3.so.0", RTLD_LAZY | RTLD_NOLOAD);
    return reinterpret_cast<Function>(dlsym(library, name));
}

bool begins(const void *text, int bytes, std::u16string_view beginning)
{
    const auto *characters = static_cast<const char16_t *>(text);
    return static_cast<std::size_t>(bytes) >= beginning.size() * sizeof(char16_t)
        && std::equal(beginning.begin(), beginning.end(), characters);
}

int bytesOf(std::u16string_view text)
{
    return static_cast<int>(text.size() * sizeof(char16_t));
}

} // namespace

struct sqlite3;
struct sqlite3_stmt;

extern "C" int sqlite3_prepare16_v2(
    sqlite3 *database, const void *text, int bytes, sqlite3_stmt **statement, const void **behind)
{
    using Function = int (*)(sqlite3 *, const void *, int, sqlite3_stmt **, const void **);
    static const auto prepare = real<Function>("sqlite3_prepare16_v2");
    constexpr auto deferred = u"BEGIN DEFERRED"sv;
    if (isFault("deferred") && begins(text, bytes, u"BEGIN IMMEDIATE"))
        return prepare(database, deferred.data(), -1, statement, behind);
    return prepare(database, text, bytes, statement, behind);
}

extern "C" int sqlite3_bind_text16(
    sqlite3_stmt *statement, int index, const void *text, int bytes, void (*release)(void *))
{
    using Function = int (*)(sqlite3_stmt *, int, const void *, int, void (*)(void *));
    static const auto bind = real<Function>("sqlite3_bind_text16");
    constexpr auto waiting = u"pending"sv;
    constexpr auto settled = u"delivered"sv;
    if (isFault("never-again") && bytes == bytesOf(waiting) && begins(text, bytes, waiting))
        return bind(statement, index, settled.data(), bytesOf(settled), nullptr);
    return bind(statement, index, text, bytes, release);
}

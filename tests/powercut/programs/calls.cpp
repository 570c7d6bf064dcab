// Makes one call of each kind that the recorder must see: "calls FOLDER CALL". The file "file" with
// "12345678", and for some the folder "folder", is there when the call is made.

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <thread>

// What the C library's headers name only when they check themselves.
extern "C" {
int __open_2(const char *path, int flags);
int __open64_2(const char *path, int flags);
int __openat_2(int folder, const char *path, int flags);
int __openat64_2(int folder, const char *path, int flags);
}

namespace {

constexpr mode_t fileMode = 0600;
constexpr mode_t folderMode = 0700;
constexpr off_t middle = 4;
constexpr int freeDescriptor = 77;

struct Setting
{
    int file; ///< descriptor of "file", at its end
    int folder; ///< of the recorded folder, which is the current one too
};

using Call = std::function<bool(const Setting &)>;

bool put(int descriptor)
{
    return descriptor >= 0 && ::write(descriptor, "abc", 3) == 3;
}

std::array<iovec, 2> parts()
{
    static std::string first = "ab";
    static std::string second = "cde";
    return {{{first.data(), first.size()}, {second.data(), second.size()}}};
}

int copyOf(const Setting &setting)
{
    ::lseek(setting.file, 0, SEEK_SET);
    return ::open("copy", O_RDWR | O_CREAT, fileMode);
}

const std::map<std::string, Call> &opens()
{
    static const int made = O_WRONLY | O_CREAT;
    static const std::map<std::string, Call> all{
        {"open", [](auto) { return put(::open("new", made, fileMode)); }},
        {"open64", [](auto) { return put(::open64("new", made, fileMode)); }},
        {"openat", [](auto set) { return put(::openat(set.folder, "new", made, fileMode)); }},
        {"openat64", [](auto set) { return put(::openat64(set.folder, "new", made, fileMode)); }},
        {"open emptying", [](auto) { return ::open("file", O_WRONLY | O_TRUNC) >= 0; }},
        {"open appending", [](auto) { return put(::open("file", O_WRONLY | O_APPEND)); }},
        {"open by its whole path",
            [](auto) {
                std::array<char, 4096> folder{};
                const std::string path = ::getcwd(folder.data(), folder.size());
                return put(::open((path + "/./new").c_str(), made, fileMode));
            }},
        {"__open_2", [](auto) { return put(::__open_2("file", O_WRONLY)); }},
        {"__open64_2", [](auto) { return put(::__open64_2("file", O_WRONLY)); }},
        {"__openat_2", [](auto set) { return put(::__openat_2(set.folder, "file", O_WRONLY)); }},
        {"__openat64_2",
            [](auto set) { return put(::__openat64_2(set.folder, "file", O_WRONLY)); }},
        {"creat", [](auto) { return put(::creat("new", fileMode)); }},
        {"creat64", [](auto) { return put(::creat64("new", fileMode)); }},
        {"dup", [](auto set) { return put(::dup(set.file)); }},
        {"dup, the first closed",
            [](auto set) {
                const int copy = ::dup(set.file);
                ::close(set.file);
                return put(copy);
            }},
        {"dup2", [](auto set) { return put(::dup2(set.file, freeDescriptor)); }},
        {"dup3", [](auto set) { return put(::dup3(set.file, freeDescriptor, O_CLOEXEC)); }},
        {"fcntl", [](auto set) { return put(::fcntl(set.file, F_DUPFD, freeDescriptor)); }},
        {"fcntl64",
            [](auto set) { return put(::fcntl64(set.file, F_DUPFD_CLOEXEC, freeDescriptor)); }},
        {"close, the number used again",
            [](auto set) {
                ::close(set.file);
                return put(::open("new", made, fileMode));
            }},
        {"open in another thread",
            [](auto) {
                bool done = false;
                std::thread([&done] { done = put(::open("new", made, fileMode)); }).join();
                return done;
            }},
    };
    return all;
}

const std::map<std::string, Call> &writes()
{
    static const std::map<std::string, Call> all{
        {"write", [](auto set) { return put(set.file); }},
        {"writev", [](auto set) { return ::writev(set.file, parts().data(), 2) == 5; }},
        {"pwrite", [](auto set) { return ::pwrite(set.file, "abc", 3, middle) == 3; }},
        {"pwrite64", [](auto set) { return ::pwrite64(set.file, "abc", 3, middle) == 3; }},
        {"pwritev", [](auto set) { return ::pwritev(set.file, parts().data(), 2, middle) == 5; }},
        {"pwritev64",
            [](auto set) { return ::pwritev64(set.file, parts().data(), 2, middle) == 5; }},
        {"sendfile",
            [](auto set) { return ::sendfile(copyOf(set), set.file, nullptr, middle) == middle; }},
        {"sendfile64",
            [](auto set) {
                return ::sendfile64(copyOf(set), set.file, nullptr, middle) == middle;
            }},
        {"copy_file_range",
            [](auto set) {
                return ::copy_file_range(set.file, nullptr, copyOf(set), nullptr, middle, 0)
                    == middle;
            }},
        {"copy_file_range at a place",
            [](auto set) {
                off64_t place = middle;
                return ::copy_file_range(set.file, nullptr, copyOf(set), &place, middle, 0)
                    == middle;
            }},
        {"ftruncate", [](auto set) { return ::ftruncate(set.file, middle) == 0; }},
        {"ftruncate64", [](auto set) { return ::ftruncate64(set.file, middle) == 0; }},
        {"truncate", [](auto) { return ::truncate("file", middle) == 0; }},
        {"truncate64", [](auto) { return ::truncate64("file", middle) == 0; }},
        {"fallocate", [](auto set) { return ::fallocate(set.file, 0, middle, 8) == 0; }},
        {"fallocate64", [](auto set) { return ::fallocate64(set.file, 0, middle, 8) == 0; }},
        {"posix_fallocate", [](auto set) { return ::posix_fallocate(set.file, middle, 8) == 0; }},
        {"posix_fallocate64",
            [](auto set) { return ::posix_fallocate64(set.file, middle, 8) == 0; }},
        {"fsync", [](auto set) { return ::fsync(set.file) == 0; }},
        {"fdatasync", [](auto set) { return ::fdatasync(set.file) == 0; }},
        {"fsync of a folder", [](auto set) { return ::fsync(set.folder) == 0; }},
    };
    return all;
}

const std::map<std::string, Call> &names()
{
    static const std::map<std::string, Call> all{
        {"rename", [](auto) { return ::rename("file", "new") == 0; }},
        {"renameat",
            [](auto set) { return ::renameat(set.folder, "file", set.folder, "new") == 0; }},
        {"renameat2",
            [](auto set) {
                return ::renameat2(set.folder, "file", set.folder, "new", RENAME_NOREPLACE) == 0;
            }},
        {"link", [](auto) { return ::link("file", "new") == 0; }},
        {"linkat",
            [](auto set) { return ::linkat(set.folder, "file", set.folder, "new", 0) == 0; }},
        {"unlink", [](auto) { return ::unlink("file") == 0; }},
        {"unlinkat", [](auto set) { return ::unlinkat(set.folder, "file", 0) == 0; }},
        {"unlinkat of a folder",
            [](auto set) { return ::unlinkat(set.folder, "folder", AT_REMOVEDIR) == 0; }},
        {"rmdir", [](auto) { return ::rmdir("folder") == 0; }},
        {"remove", [](auto) { return std::remove("file") == 0; }},
        {"remove of a folder", [](auto) { return std::remove("folder") == 0; }},
        {"mkdir", [](auto) { return ::mkdir("made", folderMode) == 0; }},
        {"mkdirat", [](auto set) { return ::mkdirat(set.folder, "made", folderMode) == 0; }},
    };
    return all;
}

bool make(const std::string &name)
{
    const bool isReady = ::mkdir("folder", folderMode) == 0;
    const Setting setting{
        ::open("file", O_RDWR | O_CREAT, fileMode), ::open(".", O_RDONLY | O_DIRECTORY)};
    if (!isReady || ::write(setting.file, "12345678", 8) != 8)
        return false;
    for (const auto *calls : {&opens(), &writes(), &names()})
        if (const auto call = calls->find(name); call != calls->end())
            return call->second(setting);
    return false;
}

} // namespace

int main(int count, char **words)
{
    if (count == 3 && ::chdir(words[1]) == 0 && make(words[2]))
        return 0;
    std::cerr << "the call failed" << std::endl;
    return 1;
}

#pragma once

#include <mutex>
#include <string_view>

/// A library that is loaded in front of the C library and writes down what a process does to the
/// files below the folder RECORDED_FOLDER, and what it makes sure of. Each call goes on as it would
/// without it.
///
/// Not seen are: files that are written through memory, as the database's "-shm" is, which it makes
/// anew; the C library's own streams (`fopen`), whose calls stay within it; `pwritev2`, `io_uring`
/// and bare system calls; child processes; `sync` of the whole machine; rights, times and symbolic
/// links. A recording that misses something leads to another folder than the process left, which
/// the tests compare.
namespace recorder {

/// Held round each call that is recorded, so that the log has the order in which things happened,
/// also where several threads write.
std::mutex &mutex();

/// Adds a record to the log. The log goes where standard output went when the process started; what
/// the process prints goes to standard error instead. A pipe takes it whatever limit the process
/// sets on the size of files. Keeps `errno`.
///
/// A record is a line "KIND OPENING NUMBER LENGTH", LENGTH bytes, and a line feed.
/// @param opening number of the opening of a file that this is about; 0 for none.
void append(const char *kind, int opening, long long number, std::string_view payload);

} // namespace recorder

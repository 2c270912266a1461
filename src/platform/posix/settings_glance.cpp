// See settings_glance.h. What is relied on is told by the file format, which its makers keep stable: a
// short text stands in one piece in its page, and pages that aren't in the file yet are in a log or
// journal beside it.
#include "platform/posix/settings_glance.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include "platform/posix/native_files.h"

namespace velm::native {

namespace {

constexpr std::size_t kMostBytes = 64 * 1024;
// A row with a name up to this length fits into the smallest page.
constexpr std::size_t kLongestName = 32;

// The head: a mark, the ways of writing and reading (2: with a log), the encoding of texts (1: UTF-8).
constexpr std::size_t kHeadBytes = 100;
constexpr std::string_view kMark("SQLite format 3\0", 16);
constexpr std::size_t kWaysAt = 18;
constexpr std::string_view kWithLog("\2\2", 2);
constexpr std::size_t kEncodingAt = 56;
constexpr std::string_view kUtf8("\0\0\0\1", 4);

bool IsHead(std::string_view bytes) {
    return bytes.size() >= kHeadBytes && bytes.starts_with(kMark) &&
           bytes.substr(kWaysAt).starts_with(kWithLog) &&
           bytes.substr(kEncodingAt).starts_with(kUtf8);
}

// Whether there is a file with anything in it; what can't be told counts as one.
bool HasContent(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) == 0) return info.st_size > 0;
    return errno != ENOENT;
}

bool IsAllInFile(const std::string& path) {
    return !HasContent(path + "-wal") && !HasContent(path + "-journal");
}

// The bytes of a small file; nothing of a larger one, or where it can't be read. Nor where the path is a
// link: the log would stand beside the file that it leads to.
std::optional<std::string> SmallFile(const std::string& path) {
    const File file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW));
    struct stat info;
    if (file.Descriptor() < 0 || fstat(file.Descriptor(), &info) != 0) return std::nullopt;
    if (!S_ISREG(info.st_mode)) return std::nullopt;
    const auto size = static_cast<std::size_t>(info.st_size);
    if (size > kMostBytes) return std::nullopt;
    std::string bytes(size, '\0');
    if (read(file.Descriptor(), bytes.data(), size) != info.st_size) return std::nullopt;
    return bytes;
}

}  // namespace

// The log is looked at on both sides of the reading, so that nothing moved on its way into the file.
bool HoldsNoKey(const std::string& path, std::string_view name) {
    if (name.empty() || name.size() > kLongestName || !IsAllInFile(path)) return false;
    const std::optional<std::string> bytes = SmallFile(path);
    return bytes && IsHead(*bytes) && bytes->find(name) == std::string::npos && IsAllInFile(path);
}

}  // namespace velm::native

// The trash of the desktop, by the freedesktop.org Trash specification 1.0
// (https://specifications.freedesktop.org/trash-spec/): the entry goes to files/, and a note under the
// same name in info/ tells where it came from. Everything goes to the trash in the home folder, so that
// nothing is written elsewhere; from another file system it is copied there.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <ctime>

#include "data/failure.h"
#include "platform/file_tree.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"
#include "platform/posix/native_tree.h"

namespace velm {

namespace {

using native::Deed;
using native::Fail;

void MakeFolders(const std::string& path) {
    if (mkdir(path.c_str(), 0700) == 0 || errno == EEXIST) return;
    if (errno != ENOENT) Fail(errno, path, Deed::kWrite);
    MakeFolders(native::Folder(path));
    if (mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) Fail(errno, path, Deed::kWrite);
}

std::string TrashFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && data[0] == '/') return native::Join(data, "Trash");
    const char* home = std::getenv("HOME");
    if (home == nullptr || home[0] != '/') throw Failure(failure::kNoSuchMember);
    return native::Join(home, ".local/share/Trash");
}

// The absolute path of an entry, its folder's links resolved, its own name as it is.
std::string AbsolutePath(const std::string& path) {
    char* const folder = realpath(native::Folder(path).c_str(), nullptr);
    if (folder == nullptr) Fail(errno, path, Deed::kRead);
    const std::string absolute = native::Join(folder, native::Name(path));
    std::free(folder);
    return absolute;
}

bool StaysInUrl(char byte) {
    const bool letter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return letter || (byte >= '0' && byte <= '9') ||
           std::string_view("/-_.~").find(byte) != std::string_view::npos;
}

std::string UrlForm(std::string_view path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string url;
    for (const char byte : path) {
        if (StaysInUrl(byte)) {
            url += byte;
        } else {
            const auto value = static_cast<std::uint8_t>(byte);
            url += {'%', kDigits[value / 16], kDigits[value % 16]};
        }
    }
    return url;
}

std::string LocalTime() {
    const std::time_t now = std::time(nullptr);
    struct tm parts = {};
    localtime_r(&now, &parts);
    std::array<char, 32> text;
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &parts);
    return {text.data(), length};
}

// A name that leaves room for a number and the ending of the note, cut between characters.
std::string ShortName(std::string name) {
    constexpr std::size_t kMostBytes = 220;
    if (name.size() <= kMostBytes) return name;
    std::size_t end = kMostBytes;
    while (end > 1 && (static_cast<std::uint8_t>(name[end]) & 0xC0) == 0x80) --end;
    name.resize(end);
    return name;
}

// Writes the note, whose name nobody else can take then; the name within the trash.
std::string ClaimName(const std::string& trash, const std::string& path) {
    const std::string text =
        "[Trash Info]\nPath=" + UrlForm(path) + "\nDeletionDate=" + LocalTime() + "\n";
    const std::string wanted = ShortName(native::Name(path));
    for (int number = 1;; ++number) {
        const std::string name = number == 1 ? wanted : wanted + "." + std::to_string(number);
        const std::string note = trash + "/info/" + name + ".trashinfo";
        const int descriptor = open(note.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (descriptor < 0 && errno == EEXIST) continue;
        if (descriptor < 0) Fail(errno, note, Deed::kWrite);
        native::File file(descriptor);
        const int error = native::WriteAll(descriptor, text);
        struct stat taken;
        const bool leftOver = lstat((trash + "/files/" + name).c_str(), &taken) == 0;
        if (error == 0 && file.Close() && !leftOver) return name;
        // An entry without a note stays; its name is passed over.
        unlink(note.c_str());
        if (!leftOver) Fail(error == 0 ? EIO : error, note, Deed::kWrite);
    }
}

}  // namespace

void MoveToTrash(std::u16string_view path) {
    const std::string native = native::EntryPath(path);
    native::RefuseRoot(native);
    struct stat info;
    if (lstat(native.c_str(), &info) != 0) Fail(errno, native, Deed::kRead);
    const std::string trash = TrashFolder();
    MakeFolders(trash + "/files");
    MakeFolders(trash + "/info");
    const std::string name = ClaimName(trash, AbsolutePath(native));
    const std::string target = trash + "/files/" + name;
    try {
        if (rename(native.c_str(), target.c_str()) != 0) {
            if (errno != EXDEV) Fail(errno, native, Deed::kWrite);
            native::CopyAndRemove(native, target);
        }
    } catch (const Failure&) {
        // What has arrived whole keeps its note, though its original could not be removed.
        if (lstat(target.c_str(), &info) != 0) {
            unlink((trash + "/info/" + name + ".trashinfo").c_str());
        }
        throw;
    }
}

}  // namespace velm

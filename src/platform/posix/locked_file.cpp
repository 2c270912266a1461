// The lock is one on the folder of the file: it needs no file of its own beside the user's, it holds also
// for a file that isn't there yet, it stays in force while the file is replaced, and the system takes it
// back from a process that is killed.
#include "platform/locked_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"

namespace velm {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds kLongestWait{10};
// Short against the time that a write takes, so that of two who write all the time neither starves.
constexpr std::chrono::microseconds kPause{200};

// The folder where the file itself stands, behind all links.
std::string FolderOfFile(std::u16string_view path) {
    const std::string name = NativePath(path);
    const std::unique_ptr<char, decltype(&std::free)> target(realpath(name.c_str(), nullptr),
                                                             &std::free);
    return native::Folder(target ? std::string(target.get()) : name);
}

// Held as long as the object lives. A file system without such locks goes without.
class FolderLock {
  public:
    explicit FolderLock(const std::string& folder)
        // With the point a missing folder is one on the way, which is failure 76.
        : folder_(native::Open(native::Join(folder, "."), O_RDONLY | O_DIRECTORY)) {
        const steady_clock::time_point end = steady_clock::now() + kLongestWait;
        while (!Take()) {
            if (steady_clock::now() > end) throw Failure(failure::kFileOpen);
            std::this_thread::sleep_for(kPause);
        }
    }

  private:
    bool Take() const {
        return flock(folder_.Descriptor(), LOCK_EX | LOCK_NB) == 0 ||
               (errno != EWOULDBLOCK && errno != EINTR);
    }

    native::File folder_;
};

std::string OldContent(std::u16string_view path) {
    return PathExists(path) ? ReadFileBytes(path) : std::string();
}

}  // namespace

void ChangeFile(std::u16string_view path, const FileChange& change) {
    const FolderLock lock(FolderOfFile(path));
    const std::optional<std::string> changed = change(OldContent(path));
    if (changed) WriteFileBytes(path, *changed);
}

}  // namespace velm

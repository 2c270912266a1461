// Contents of files: reading, writing, appending, copying. See files.h.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"

namespace velm {

namespace {

using native::Deed;
using native::Fail;

constexpr std::size_t kBufferBytes = std::size_t{1} << 18;

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;

struct stat StatOf(int descriptor) {
    struct stat info = {};
    fstat(descriptor, &info);
    return info;
}

// Reads what is there, at most the wanted count, past interruptions; -1 with errno on a failure.
ssize_t ReadSome(int descriptor, char* to, std::size_t count) {
    ssize_t got = 0;
    do {
        got = read(descriptor, to, count);
    } while (got < 0 && errno == EINTR);
    return got;
}

// Sees to it that a file's first bytes have space on the disk; 0 or the system's error. A file system
// that can't say so is taken at its word later.
int ReserveSpace(int descriptor, std::size_t bytes) {
    if (bytes == 0 || !S_ISREG(StatOf(descriptor).st_mode)) return 0;
    const off_t before = StatOf(descriptor).st_size;
    if (fallocate(descriptor, 0, 0, static_cast<off_t>(bytes)) == 0) return 0;
    const int error = errno;
    if (error != ENOSPC && error != EDQUOT && error != EFBIG) return 0;
    return ftruncate(descriptor, before) == 0 ? error : errno;
}

// Throws unless the target can be written, so that a read-only file is safe from being replaced; the
// superuser, too, heeds the attribute.
void CheckWritable(const std::string& path, const struct stat& info) {
    if (S_ISDIR(info.st_mode)) Fail(EISDIR, path, Deed::kWrite);
    const bool closed = S_ISREG(info.st_mode) && (info.st_mode & kWriteBits) == 0;
    if (closed || access(path.c_str(), W_OK) != 0) Fail(EACCES, path, Deed::kWrite);
}

// A new file beside the target, removed unless it takes the target's place.
class Replacement {
  public:
    // Whether the content must outlive a machine that stops.
    enum class Flush { kNo, kYes };

    explicit Replacement(const std::string& target)
        : target_(target),
          path_(native::TemporaryName(target)),
          file_(open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)) {
        if (file_.Descriptor() < 0) openError_ = errno;
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (openError_ == 0 && !committed_) unlink(path_.c_str());
    }

    int OpenError() const { return openError_; }
    int Descriptor() const { return file_.Descriptor(); }
    void Commit(Flush flush) {
        const bool flushed = flush == Flush::kNo || fsync(file_.Descriptor()) == 0;
        const int error = errno;
        if (!flushed) Fail(error, target_, Deed::kWrite);
        if (!file_.Close()) Fail(errno, target_, Deed::kWrite);
        if (rename(path_.c_str(), target_.c_str()) != 0) Fail(errno, target_, Deed::kWrite);
        committed_ = true;
        if (flush == Flush::kYes) FlushFolder();
    }

  private:
    void FlushFolder() const {
        const native::File folder(
            open(native::Folder(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (folder.Descriptor() >= 0) fsync(folder.Descriptor());
    }

    std::string target_;
    std::string path_;
    native::File file_;
    int openError_ = 0;
    bool committed_ = false;
};

void WriteInPlace(const std::string& path, std::string_view bytes, bool cut) {
    const native::File file = native::Open(path, O_WRONLY | O_CREAT);
    int error = ReserveSpace(file.Descriptor(), bytes.size());
    if (error == 0) error = native::WriteAll(file.Descriptor(), bytes);
    if (error != 0) Fail(error, path, Deed::kWrite);
    if (!cut || !S_ISREG(StatOf(file.Descriptor()).st_mode)) return;
    if (ftruncate(file.Descriptor(), static_cast<off_t>(bytes.size())) != 0) {
        Fail(errno, path, Deed::kWrite);
    }
}

void CopyAttributes(int from, int to, const struct stat& info) {
    std::array<char, 4096> names;
    const ssize_t size = flistxattr(from, names.data(), names.size());
    const char* const end = names.data() + (size < 0 ? 0 : size);
    for (const char* name = names.data(); name < end; name += std::strlen(name) + 1) {
        std::array<char, 4096> value;
        const ssize_t got = fgetxattr(from, name, value.data(), value.size());
        if (got >= 0) fsetxattr(to, name, value.data(), static_cast<std::size_t>(got), 0);
    }
    if (fchown(to, info.st_uid, info.st_gid) != 0) errno = 0;  // only its owner's right to give
    fchmod(to, info.st_mode & 0777);
}

void ReplaceWhole(const std::string& path, std::string_view bytes) {
    struct stat info;
    const bool exists = stat(path.c_str(), &info) == 0;
    if (!exists && errno != ENOENT) Fail(errno, path, Deed::kWrite);
    if (exists) CheckWritable(path, info);
    struct stat link;
    const bool dangling = !exists && lstat(path.c_str(), &link) == 0;
    if (dangling || (exists && !S_ISREG(info.st_mode))) return WriteInPlace(path, bytes, true);

    const std::string target = exists ? native::FollowLinks(path) : path;
    Replacement replacement(target);
    // A file that may be written in a folder that may not: over itself, its space reserved first.
    if (replacement.OpenError() != 0 && exists) return WriteInPlace(path, bytes, true);
    if (replacement.OpenError() != 0) Fail(replacement.OpenError(), path, Deed::kWrite);
    if (exists) {
        const native::File old(open(target.c_str(), O_RDONLY | O_CLOEXEC));
        CopyAttributes(old.Descriptor(), replacement.Descriptor(), info);
    }
    const int error = native::WriteAll(replacement.Descriptor(), bytes);
    if (error != 0) Fail(error, path, Deed::kWrite);
    replacement.Commit(Replacement::Flush::kYes);
}

void CopyBytes(int from, int to, const std::string& fromPath, const std::string& toPath) {
    const auto buffer = std::make_unique<char[]>(kBufferBytes);
    for (;;) {
        const ssize_t got = ReadSome(from, buffer.get(), kBufferBytes);
        if (got < 0) Fail(errno, fromPath, Deed::kRead);
        if (got == 0) return;
        const int error = native::WriteAll(to, {buffer.get(), static_cast<std::size_t>(got)});
        if (error != 0) Fail(error, toPath, Deed::kWrite);
    }
}

native::File OpenForReading(const std::string& path) {
    native::File file = native::Open(path, O_RDONLY);
    if (S_ISDIR(StatOf(file.Descriptor()).st_mode)) Fail(EISDIR, path, Deed::kRead);
    return file;
}

}  // namespace

std::string native::FollowLinks(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> target(realpath(path.c_str(), nullptr),
                                                             &std::free);
    return target ? std::string(target.get()) : path;
}

int native::WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

void native::CopyTraits(int from, int to, const struct stat& info) {
    CopyAttributes(from, to, info);
    const struct timespec times[2] = {info.st_atim, info.st_mtim};
    futimens(to, times);
}

void native::CopyContent(const std::string& from, const std::string& to, ReadOnlyTarget readOnly) {
    const File source = OpenForReading(from);
    struct stat old;
    const bool exists = stat(to.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) Fail(EISDIR, to, Deed::kWrite);
    if (exists && readOnly == ReadOnlyTarget::kKeep) CheckWritable(to, old);
    Replacement replacement(native::FollowLinks(to));
    if (replacement.OpenError() != 0) Fail(replacement.OpenError(), to, Deed::kWrite);
    CopyBytes(source.Descriptor(), replacement.Descriptor(), from, to);
    CopyTraits(source.Descriptor(), replacement.Descriptor(), StatOf(source.Descriptor()));
    // The original is still there, should the machine stop now.
    replacement.Commit(Replacement::Flush::kNo);
}

std::string ReadFileBytes(std::u16string_view path) {
    const std::string native = NativePath(path);
    const native::File file = OpenForReading(native);
    // A file of the system may tell no size, and one that grows more than it told.
    std::string bytes;
    std::size_t room = static_cast<std::size_t>(StatOf(file.Descriptor()).st_size) + 1;
    for (;;) {
        const std::size_t size = bytes.size();
        bytes.resize(size + room);
        const ssize_t got = ReadSome(file.Descriptor(), bytes.data() + size, room);
        if (got < 0) Fail(errno, native, Deed::kRead);
        bytes.resize(size + static_cast<std::size_t>(got));
        if (got == 0) return bytes;
        room = std::max(room - static_cast<std::size_t>(got), std::size_t{4096});
    }
}

void WriteFileBytes(std::u16string_view path, std::string_view bytes, WriteMode mode) {
    const std::string native = NativePath(path);
    if (mode == WriteMode::kReplace) return ReplaceWhole(native, bytes);
    struct stat info;
    if (stat(native.c_str(), &info) == 0) CheckWritable(native, info);
    WriteInPlace(native, bytes, false);
}

void AppendFileBytes(std::u16string_view path, std::string_view bytes) {
    const std::string native = NativePath(path);
    struct stat info;
    if (stat(native.c_str(), &info) == 0) CheckWritable(native, info);
    const native::File file = native::Open(native, O_WRONLY | O_CREAT | O_APPEND);
    const off_t before = StatOf(file.Descriptor()).st_size;
    int error = native::WriteAll(file.Descriptor(), bytes);
    if (error == 0) return;
    if (S_ISREG(StatOf(file.Descriptor()).st_mode) && ftruncate(file.Descriptor(), before) != 0) {
        error = errno;
    }
    Fail(error, native, Deed::kWrite);
}

void CopyFileTo(std::u16string_view from, std::u16string_view to) {
    native::CopyContent(NativePath(from), NativePath(to), native::ReadOnlyTarget::kKeep);
}

}  // namespace velm

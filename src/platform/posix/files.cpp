// Entries of the file system: what they are, lists of them, attributes, and the simple changes. See
// files.h; contents are in file_contents.cpp.
#include "platform/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "data/failure.h"
#include "data/numbers.h"
#include "data/text.h"
#include "data/utf.h"
#include "data/width.h"
#include "platform/posix/native_files.h"

namespace velm {

namespace {

using native::Deed;
using native::Fail;

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr const char* kAttributeName = "user.velmscript.attributes";
// What the extended attribute holds; the hidden bit only marks a name that the point was put before.
constexpr int kKeptBits = attribute::kSystem | attribute::kArchive | attribute::kHidden;

FileTime TimeOf(const struct statx_timestamp& stamp) {
    return {stamp.tv_sec, static_cast<std::int32_t>(stamp.tv_nsec)};
}

EntryKind KindOf(mode_t mode) {
    if (S_ISDIR(mode)) return EntryKind::kFolder;
    return S_ISREG(mode) || S_ISLNK(mode) ? EntryKind::kFile : EntryKind::kOther;
}

int AttributesOf(const std::string& path, mode_t mode) {
    int attributes = S_ISDIR(mode) ? attribute::kFolder : 0;
    if (!S_ISDIR(mode) && !S_ISLNK(mode) && (mode & kWriteBits) == 0) {
        attributes |= attribute::kReadOnly;
    }
    const std::string name = native::Name(path);
    if (name.starts_with('.') && name != "." && name != "..") attributes |= attribute::kHidden;
    const int kept = attribute::kSystem | attribute::kArchive;
    return attributes | (native::ExtraAttributes(path) & kept);
}

std::optional<FileInfo> StatNative(const std::string& path) {
    struct statx info;
    const unsigned wanted = STATX_BASIC_STATS | STATX_BTIME;
    if (statx(AT_FDCWD, path.c_str(), 0, wanted, &info) != 0 &&
        statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &info) != 0) {
        return std::nullopt;
    }
    FileInfo found;
    found.kind = KindOf(info.stx_mode);
    found.size = static_cast<std::int64_t>(info.stx_size);
    found.modified = TimeOf(info.stx_mtime);
    found.accessed = TimeOf(info.stx_atime);
    found.created = (info.stx_mask & STATX_BTIME) != 0 ? TimeOf(info.stx_btime) : found.modified;
    found.attributes = AttributesOf(path, info.stx_mode);
    return found;
}

int FailureNumber(int error, const std::string& path, Deed deed) {
    switch (error) {
        case ENOENT:
            return access(native::Folder(path).c_str(), F_OK) == 0 ? failure::kFileNotFound
                                                                   : failure::kPathNotFound;
        case ENOTDIR: return failure::kPathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
            return deed == Deed::kWrite ? failure::kPermissionDenied : failure::kPathFileAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return failure::kDiskFull;
        case EMFILE:
        case ENFILE: return failure::kTooManyFiles;
        case EEXIST: return failure::kFileExists;
        case ENAMETOOLONG:
        case EILSEQ: return failure::kBadFileName;
        case ETXTBSY:
        case EBUSY: return failure::kFileOpen;
        case ENXIO:
        case ENODEV: return failure::kDeviceUnavailable;
        case ENOMEM: return failure::kOutOfMemory;
        case EIO: return failure::kIoError;
        default: return failure::kPathFileAccess;
    }
}

std::u16string DescriptionOf(int error) {
    switch (error) {
        case EISDIR: return u"フォルダです。ファイルではありません。";
        case ELOOP: return u"リンクがたどりきれません。";
        case ENOTEMPTY: return u"フォルダが空ではありません。";
        default: return {};
    }
}

void Check(int result, const std::string& path) {
    if (result != 0) Fail(errno, path, Deed::kWrite);
}

// "?" in a mask may also stand for nothing where the name has a point or ends.
bool MatchesFolded(std::u16string_view name, std::u16string_view mask) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = kNotFound;
    std::size_t starAt = 0;
    while (at < name.size() || in < mask.size()) {
        if (in < mask.size() && mask[in] == u'*') {
            star = in++;
            starAt = at;
        } else if (in < mask.size() && mask[in] == u'?') {
            ++in;
            if (at < name.size() && name[at] != u'.') ++at;
        } else if (in < mask.size() && at < name.size() && mask[in] == name[at]) {
            ++in;
            ++at;
        } else if (star != kNotFound && starAt < name.size()) {
            in = star + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return true;
}

bool HoldsWildcard(std::u16string_view name) { return name.find_first_of(u"*?") != kNotFound; }

// The path up to its last separator, and the current folder's name when it has none.
std::u16string_view FolderPart(std::u16string_view path) {
    return path.substr(0, path.size() - FileNameOf(path).size());
}

void SetExtraAttributes(const std::string& path, int attributes) {
    const std::string text = std::to_string(attributes);
    if (attributes == 0) {
        removexattr(path.c_str(), kAttributeName);
    } else {
        setxattr(path.c_str(), kAttributeName, text.data(), text.size(), 0);
    }
}

void MoveWithoutReplacing(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
    if (errno != EINVAL && errno != ENOSYS) Fail(errno, from, Deed::kWrite);
    // A file system that can't do both in one step.
    struct stat info;
    if (lstat(to.c_str(), &info) == 0) Fail(EEXIST, to, Deed::kWrite);
    Check(rename(from.c_str(), to.c_str()), from);
}

void SetHidden(const std::string& path, bool hidden) {
    const std::string name = native::Name(path);
    if (name.starts_with('.') == hidden) return;
    const std::string other =
        native::Join(native::Folder(path), hidden ? "." + name : name.substr(1));
    MoveWithoutReplacing(path, other);
}

}  // namespace

native::File::~File() {
    if (descriptor_ >= 0) close(descriptor_);
}

bool native::File::Close() { return close(std::exchange(descriptor_, -1)) == 0; }

void native::Fail(int error, const std::string& path, Deed deed) {
    throw Failure(FailureNumber(error, path, deed), DescriptionOf(error));
}

native::File native::Open(const std::string& path, int flags, mode_t mode) {
    const int descriptor = open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode);
    if (descriptor < 0) Fail(errno, path, flags == O_RDONLY ? Deed::kRead : Deed::kWrite);
    return File(descriptor);
}

std::string native::Folder(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/');
    const std::size_t cut = end == path.npos ? end : path.find_last_of('/', end);
    if (cut == path.npos) return end == path.npos && !path.empty() ? "/" : ".";
    return cut == 0 ? "/" : path.substr(0, cut);
}

std::string native::Name(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/') + 1;
    const std::size_t cut = path.substr(0, end).find_last_of('/');
    return path.substr(cut + 1, end - cut - 1);
}

std::string native::Join(const std::string& folder, const std::string& name) {
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

std::string native::TemporaryName(const std::string& path) {
    static std::atomic<unsigned> count = 0;
    const std::string name = ".velm-" + std::to_string(getpid()) + "-" + std::to_string(++count);
    return Join(Folder(path), name + "-" + std::to_string(time(nullptr)));
}

int native::ExtraAttributes(const std::string& path) {
    std::array<char, 16> text;
    const ssize_t size = getxattr(path.c_str(), kAttributeName, text.data(), text.size());
    int attributes = 0;
    for (ssize_t i = 0; i < size && text[static_cast<std::size_t>(i)] >= '0'; ++i) {
        attributes = (attributes * 10 + text[static_cast<std::size_t>(i)] - '0') & 0xFFFF;
    }
    return attributes;
}

std::optional<FileInfo> StatFile(std::u16string_view path) {
    try {
        return StatNative(NativePath(path));
    } catch (const Failure&) {
        return std::nullopt;
    }
}

FileInfo StatFileOrFail(std::u16string_view path) {
    const std::string native = NativePath(path);
    const std::optional<FileInfo> info = StatNative(native);
    if (!info) Fail(errno, native, Deed::kRead);
    return *info;
}

bool PathExists(std::u16string_view path) {
    return StatFile(path).has_value() || (IsMask(path) && !ListMatches(path).empty());
}

bool IsPlainFile(std::u16string_view path) {
    const std::optional<FileInfo> info = StatFile(path);
    return info && info->kind != EntryKind::kFolder;
}

bool IsFolder(std::u16string_view path) {
    const std::optional<FileInfo> info = StatFile(path);
    return info && info->kind == EntryKind::kFolder;
}

bool MatchesMask(std::u16string_view name, std::u16string_view mask) {
    if (mask == u"*.*" || mask == u"*") return true;
    if (mask == u"*.") return name.find(u'.') == kNotFound;
    return MatchesFolded(ToLower(name), ToLower(mask));
}

bool IsMask(std::u16string_view path) { return HoldsWildcard(FileNameOf(path)) && !StatFile(path); }

std::vector<FolderEntry> ListFolder(std::u16string_view folder) {
    const std::string native = NativePath(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(native.c_str()), closedir);
    if (!stream) Fail(errno, native, Deed::kRead);
    std::vector<std::pair<std::u16string, FolderEntry>> found;
    while (const dirent* entry = readdir(stream.get())) {
        const std::string name = entry->d_name;
        if (name == "." || name == "..") continue;
        const std::optional<FileInfo> info = StatNative(native::Join(native, name));
        if (!info) continue;
        std::u16string text = native::NameToText(name);
        std::u16string key = ToLower(text) + u'\0' + text;
        found.emplace_back(std::move(key), FolderEntry{std::move(text), *info});
    }
    std::sort(found.begin(), found.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<FolderEntry> entries;
    entries.reserve(found.size());
    for (auto& [key, entry] : found) entries.push_back(std::move(entry));
    return entries;
}

std::vector<FolderEntry> ListMatches(std::u16string_view mask) {
    const std::u16string name(FileNameOf(mask));
    std::vector<FolderEntry> entries;
    try {
        if (!IsMask(mask)) {
            if (name.empty()) return entries;
            const std::string native = NativePath(mask);
            const std::optional<FileInfo> info = StatNative(native);
            if (info) entries.push_back({native::NameToText(native::Name(native)), *info});
            return entries;
        }
        const std::u16string_view folder = FolderPart(mask);
        entries = ListFolder(folder.empty() ? u"." : folder);
    } catch (const Failure&) {
        return {};
    }
    std::erase_if(entries,
                  [&](const FolderEntry& entry) { return !MatchesMask(entry.name, name); });
    return entries;
}

std::u16string CurrentFolder() {
    const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
    if (!folder) Fail(errno, ".", Deed::kRead);
    return ScriptPath(folder.get());
}

void ChangeFolder(std::u16string_view folder) {
    const std::string native = NativePath(folder);
    if (chdir(native.c_str()) == 0) return;
    if (errno == ENOENT) throw Failure(failure::kPathNotFound);
    Fail(errno, native, Deed::kRead);
}

void MakeFolder(std::u16string_view folder) {
    const std::string native = NativePath(folder);
    Check(mkdir(native.c_str(), 0777), native);
}

void RemoveFolder(std::u16string_view folder) {
    const std::string native = NativePath(folder);
    if (rmdir(native.c_str()) == 0) return;
    if (errno == ENOENT) throw Failure(failure::kPathNotFound);
    Fail(errno, native, Deed::kWrite);
}

void RemoveFile(std::u16string_view path) {
    const std::string native = NativePath(path);
    struct stat info;
    if (lstat(native.c_str(), &info) != 0) Fail(errno, native, Deed::kWrite);
    if (S_ISDIR(info.st_mode)) throw Failure(failure::kFileNotFound);
    if (S_ISREG(info.st_mode) && (info.st_mode & kWriteBits) == 0) {
        throw Failure(failure::kPathFileAccess);
    }
    Check(unlink(native.c_str()), native);
}

void RenameEntry(std::u16string_view from, std::u16string_view to) {
    const std::string source = NativePath(from);
    std::string target = NativePath(to);
    // A new spelling of the same name finds the old one.
    if (target == source) target = NativePathAsWritten(to);
    if (target == source) return;
    MoveWithoutReplacing(source, target);
}

void SetFileAttributes(std::u16string_view path, int attributes) {
    const std::string native = NativePath(path);
    struct stat info;
    if (stat(native.c_str(), &info) != 0) Fail(errno, native, Deed::kWrite);
    const bool wasOpen = (info.st_mode & kWriteBits) != 0;
    const bool readOnly = !S_ISDIR(info.st_mode) && (attributes & attribute::kReadOnly) != 0;
    // The extended attribute needs a file that may be written.
    if (!wasOpen && !readOnly)
        Check(chmod(native.c_str(), (info.st_mode | S_IWUSR) & 07777), native);
    SetExtraAttributes(native, attributes & kKeptBits);
    if (wasOpen && readOnly)
        Check(chmod(native.c_str(), info.st_mode & 07777 & ~kWriteBits), native);
    SetHidden(native, (attributes & attribute::kHidden) != 0);
}

}  // namespace velm

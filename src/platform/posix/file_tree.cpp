// See file_tree.h. Below the two paths that a caller names, names are taken exactly: a folder may hold
// two that differ in letter case alone.
#include "platform/file_tree.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <memory>
#include <vector>

#include "data/failure.h"
#include "platform/files.h"
#include "platform/posix/native_files.h"
#include "platform/posix/native_tree.h"

namespace velm {

namespace {

using native::Deed;
using native::Fail;

using FolderStream = std::unique_ptr<DIR, int (*)(DIR*)>;

std::vector<std::string> NamesIn(DIR* stream) {
    std::vector<std::string> names;
    while (const dirent* entry = readdir(stream)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<std::string> EntriesOf(const std::string& folder) {
    const FolderStream stream(opendir(folder.c_str()), closedir);
    if (!stream) Fail(errno, folder, Deed::kRead);
    return NamesIn(stream.get());
}

bool IsSame(const struct stat& left, const struct stat& right) {
    return left.st_dev == right.st_dev && left.st_ino == right.st_ino;
}

struct stat LinkStat(const std::string& path) {
    struct stat info;
    if (lstat(path.c_str(), &info) != 0) Fail(errno, path, Deed::kRead);
    return info;
}

[[noreturn]] void FailOntoItself() {
    throw Failure(failure::kPathFileAccess,
                  u"送り元と送り先が同じか、送り先が送り元の中にあります。");
}

// Throws when the target is the folder itself or lies in it; of a target that isn't there yet the
// nearest folder that is counts.
void CheckOutside(const struct stat& folder, std::string target) {
    struct stat info;
    while (stat(target.c_str(), &info) != 0) {
        const std::string parent = native::Folder(target);
        if (parent == target) return;
        target = parent;
    }
    for (;;) {
        if (IsSame(info, folder)) FailOntoItself();
        target = native::Join(target, "..");
        struct stat parent;
        if (stat(target.c_str(), &parent) != 0 || IsSame(parent, info)) return;
        info = parent;
    }
}

bool GoesOn(const TreeQuestions& questions, const std::string& path) {
    return !questions.goOn || questions.goOn(ScriptPath(path));
}

// Whether the entry may be put where something may stand already. What stands there must be of the same
// kind, file or folder.
bool MayPut(const std::string& to, bool isFolder, const TreeQuestions& questions) {
    struct stat info;
    if (lstat(to.c_str(), &info) != 0) return true;
    const bool folderThere = stat(to.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
    if (folderThere != isFolder) Fail(folderThere ? EISDIR : EEXIST, to, Deed::kWrite);
    return isFolder || !questions.mayReplace || questions.mayReplace(ScriptPath(to));
}

void CopyLink(const std::string& from, const std::string& to) {
    std::array<char, PATH_MAX> target;
    const ssize_t length = readlink(from.c_str(), target.data(), target.size());
    if (length < 0) Fail(errno, from, Deed::kRead);
    const std::string text(target.data(), static_cast<std::size_t>(length));
    if (unlink(to.c_str()) != 0 && errno != ENOENT) Fail(errno, to, Deed::kWrite);
    if (symlink(text.c_str(), to.c_str()) != 0) Fail(errno, to, Deed::kWrite);
}

bool CopyEntry(const std::string& from, const std::string& to, const TreeQuestions& questions);

bool CopyFolder(const std::string& from, const std::string& to, const struct stat& info,
                const TreeQuestions& questions) {
    const bool isNew = mkdir(to.c_str(), 0700) == 0;
    if (!isNew && errno != EEXIST) Fail(errno, to, Deed::kWrite);
    for (const std::string& name : EntriesOf(from)) {
        if (!CopyEntry(native::Join(from, name), native::Join(to, name), questions)) return false;
    }
    if (!isNew) return true;
    const native::File source = native::Open(from, O_RDONLY | O_DIRECTORY);
    const native::File copy = native::Open(to, O_RDONLY | O_DIRECTORY);
    native::CopyTraits(source.Descriptor(), copy.Descriptor(), info);
    return true;
}

bool CopyEntry(const std::string& from, const std::string& to, const TreeQuestions& questions) {
    if (!GoesOn(questions, from)) return false;
    const struct stat info = LinkStat(from);
    if (!MayPut(to, S_ISDIR(info.st_mode), questions)) return true;
    if (S_ISDIR(info.st_mode)) return CopyFolder(from, to, info, questions);
    if (S_ISLNK(info.st_mode)) {
        CopyLink(from, to);
    } else if (S_ISREG(info.st_mode)) {
        native::CopyContent(from, to, native::ReadOnlyTarget::kReplace);
    } else {
        // A pipe or a device has no content to copy.
        throw Failure(failure::kPathFileAccess);
    }
    return true;
}

bool MoveEntry(const std::string& from, const std::string& to, const TreeQuestions& questions);

// A folder that moves onto one of the same name is added to it.
bool MoveContents(const std::string& from, const std::string& to, const TreeQuestions& questions) {
    for (const std::string& name : EntriesOf(from)) {
        if (!MoveEntry(native::Join(from, name), native::Join(to, name), questions)) return false;
    }
    // What the user wanted to keep in its place keeps its folder too.
    if (rmdir(from.c_str()) != 0 && errno != ENOTEMPTY) Fail(errno, from, Deed::kWrite);
    return true;
}

// To another file system: what is there is whole before anything goes.
bool MoveAcross(const std::string& from, const std::string& to, const TreeQuestions& questions) {
    TreeQuestions silent;
    silent.goOn = questions.goOn;
    if (!CopyEntry(from, to, silent)) return false;
    native::RemoveEntry(from);
    return true;
}

bool MoveEntry(const std::string& from, const std::string& to, const TreeQuestions& questions) {
    if (!GoesOn(questions, from)) return false;
    const struct stat info = LinkStat(from);
    const bool isFolder = S_ISDIR(info.st_mode);
    if (!MayPut(to, isFolder, questions)) return true;
    struct stat there;
    if (isFolder && stat(to.c_str(), &there) == 0) return MoveContents(from, to, questions);
    if (rename(from.c_str(), to.c_str()) == 0) return true;
    if (errno != EXDEV) Fail(errno, to, Deed::kWrite);
    return MoveAcross(from, to, questions);
}

// The native paths of an operation's two ends, checked against each other.
struct Ends {
    std::string from;
    std::string to;
};

Ends CheckedEnds(std::u16string_view from, std::u16string_view to) {
    Ends ends = {native::EntryPath(from), native::EntryPath(to)};
    const struct stat info = LinkStat(ends.from);
    struct stat there;
    if (S_ISDIR(info.st_mode)) {
        CheckOutside(info, ends.to);
    } else if (stat(ends.to.c_str(), &there) == 0) {
        struct stat source;
        if (stat(ends.from.c_str(), &source) == 0 && IsSame(source, there)) FailOntoItself();
    }
    return ends;
}

// Removes an entry of an open folder. Each folder is reached from the one above, not by its path: a link
// that somebody puts in its place meanwhile is not entered, and the path may be of any length.
void RemoveIn(int folder, const std::string& entry) {
    struct stat info;
    const char* name = entry.c_str();
    if (fstatat(folder, name, &info, AT_SYMLINK_NOFOLLOW) != 0) Fail(errno, entry, Deed::kRead);
    const bool isFolder = S_ISDIR(info.st_mode);
    if (isFolder) {
        const int opened = openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (opened < 0) Fail(errno, entry, Deed::kRead);
        const FolderStream stream(fdopendir(opened), closedir);
        if (!stream) throw Failure(failure::kOutOfMemory);
        for (const std::string& inner : NamesIn(stream.get())) RemoveIn(opened, inner);
    }
    if (unlinkat(folder, name, isFolder ? AT_REMOVEDIR : 0) != 0) Fail(errno, entry, Deed::kWrite);
}

}  // namespace

void native::RemoveEntry(const std::string& path) { RemoveIn(AT_FDCWD, path); }

void native::CopyAndRemove(const std::string& from, const std::string& to) {
    try {
        CopyEntry(from, to, {});
    } catch (const Failure&) {
        struct stat info;
        if (lstat(to.c_str(), &info) == 0) RemoveEntry(to);
        throw;
    }
    RemoveEntry(from);
}

std::string native::EntryPath(std::u16string_view path) {
    std::string native = NativePath(path);
    while (native.size() > 1 && native.ends_with('/')) native.pop_back();
    return native;
}

void native::RefuseRoot(const std::string& path) {
    const std::string name = Name(path);
    struct stat root;
    struct stat info;
    const bool isRoot =
        stat("/", &root) == 0 && lstat(path.c_str(), &info) == 0 && IsSame(root, info);
    if (name == "." || name == ".." || isRoot) Fail(EBUSY, path, Deed::kWrite);
}

bool CopyTree(std::u16string_view from, std::u16string_view to, const TreeQuestions& questions) {
    Ends ends = CheckedEnds(from, to);
    // A link that the caller names stands for what it leads to.
    if (S_ISLNK(LinkStat(ends.from).st_mode)) ends.from = native::FollowLinks(ends.from);
    return CopyEntry(ends.from, ends.to, questions);
}

bool MoveTree(std::u16string_view from, std::u16string_view to, const TreeQuestions& questions) {
    const Ends ends = CheckedEnds(from, to);
    native::RefuseRoot(ends.from);
    return MoveEntry(ends.from, ends.to, questions);
}

void RemoveTree(std::u16string_view path) {
    const std::string native = native::EntryPath(path);
    native::RefuseRoot(native);
    native::RemoveEntry(native);
}

}  // namespace velm

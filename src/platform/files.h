// Files and folders under the paths that scripts write, and the one place that maps those paths. What
// takes a script path is a std::u16string_view; native paths are bytes in a std::string, and only code
// under platform/ should need them. Operations throw Failure:
//
//   52  the name can't be one: empty, with a NUL, or too long
//   53  no such file           76  a folder on the way isn't there
//   58  the name is taken      61  no space left (also a quota or a size limit)
//   67  too many open files    70  writing is not allowed, or the file is read-only
//   75  the entry is of the wrong kind, can't be read, or a folder isn't empty
//   55  the file is in use     57  the device failed
//
// Not here: trees, the trash and shortcuts (platform/file_tree.h, trash.h, shortcuts.h), encodings of
// contents (core/encoded_file.h, data/).
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

// The native path of a script path. "C:\" is the root of the file system, "\" and "/" separate, the
// letter case of the drive doesn't matter, "C:name" and "name" are relative to the current folder.
// A name that isn't there as written is looked for again without regard to letter case, component by
// component (of several the first in byte order). Then a name may also stand for the form that the
// system made of it: ".name" where ファイル属性変更 has hidden "name", "name.desktop" for the shortcut
// "name.lnk". What is not found at all stays as written. Throws Failure 52 for a name that can't be
// one, 76 for a drive that doesn't exist and for a network path (two backslashes in front).
std::string NativePath(std::u16string_view scriptPath);
// The same, but the last component stays as written.
std::string NativePathAsWritten(std::u16string_view scriptPath);

// The script path of a native path: an absolute one begins with "C:\", "\" separates. Names that no
// valid text can hold come back to the same file through NativePath: a byte that isn't UTF-8, and a
// backslash within a name, is the single unit U+DC00 plus the byte.
std::u16string ScriptPath(std::string_view nativePath);

enum class EntryKind : std::uint8_t { kFile, kFolder, kOther };

// A point in time, as the file system keeps it.
struct FileTime {
    std::int64_t seconds = 0;  // since 1970-01-01 00:00:00 UTC
    std::int32_t nanoseconds = 0;
    auto operator<=>(const FileTime&) const = default;
};

// Bits of the attributes of a file.
namespace attribute {
constexpr int kReadOnly = 1;  // nobody has write permission
constexpr int kHidden = 2;    // the name begins with a point
constexpr int kSystem =
    4;  // this and the next in the extended attribute user.velmscript.attributes
constexpr int kFolder = 16;
constexpr int kArchive = 32;
}  // namespace attribute

struct FileInfo {
    EntryKind kind = EntryKind::kFile;
    std::int64_t size = 0;  // bytes; of a folder whatever the file system tells
    FileTime created;       // the modification time where the file system doesn't keep it
    FileTime modified;
    FileTime accessed;
    int attributes = 0;
};

// What a path leads to; links are followed, but for one that leads nowhere, which counts as a file.
// Nothing when there is no such entry or its name can't be one.
std::optional<FileInfo> StatFile(std::u16string_view path);
// The same, throwing Failure 53 or 76 when there is none.
FileInfo StatFileOrFail(std::u16string_view path);

// Whether an entry of any kind has the name, or with * or ? in its last component matches it.
bool PathExists(std::u16string_view path);
// Whether the path is a file, no folder. Not for masks.
bool IsPlainFile(std::u16string_view path);
bool IsFolder(std::u16string_view path);

// The whole file.
std::string ReadFileBytes(std::u16string_view path);

enum class WriteMode : std::uint8_t {
    // The new content takes the place of the old one in one step: a reader, and a failure, find the
    // one or the other whole. Keeps permissions and extended attributes; a link stays and its target
    // is replaced.
    kReplace,
    // Over the beginning of the file; what a longer old file holds behind stays. Without space for
    // all of it nothing is written.
    kKeepTail,
};

// Writes a file, which is made if it is missing; its folder must be there.
void WriteFileBytes(std::u16string_view path, std::string_view bytes,
                    WriteMode mode = WriteMode::kReplace);
// Adds bytes at the end; a failure leaves the file as it was.
void AppendFileBytes(std::u16string_view path, std::string_view bytes);

// One entry of a folder.
struct FolderEntry {
    std::u16string name;
    FileInfo info;
};

// Whether a name matches a mask of * (any text) and ? (one character, or none before a point and at
// the end), without regard to letter case. "*.*" matches every name, "*." those without a point.
bool MatchesMask(std::u16string_view name, std::u16string_view mask);
// Whether the last component of a path holds * or ?, and no entry has just that name.
bool IsMask(std::u16string_view path);
// The entries of a folder, sorted by name without regard to letter case, without "." and "..". An
// entry that vanishes meanwhile is left out.
std::vector<FolderEntry> ListFolder(std::u16string_view folder);
// The entries that the last component of the path, a name or a mask, matches in its folder. Empty when
// the folder isn't there or can't be read.
std::vector<FolderEntry> ListMatches(std::u16string_view mask);

// The current folder, without a backslash at its end but for the root.
std::u16string CurrentFolder();
void ChangeFolder(std::u16string_view folder);
// Makes one folder; its parent must be there.
void MakeFolder(std::u16string_view folder);
// Removes an empty folder.
void RemoveFolder(std::u16string_view folder);
// Removes a file for good. A read-only one stays (75), a folder is no file (53).
void RemoveFile(std::u16string_view path);
// Gives an entry another name or place on the same file system; a name that is taken fails (58).
void RenameEntry(std::u16string_view from, std::u16string_view to);
// Copies a file over an old one, with its times, permissions and extended attributes.
void CopyFileTo(std::u16string_view from, std::u16string_view to);

// Sets the attributes of a file; bits without a counterpart are passed over. Hiding renames the file
// to its name with a point in front, and showing it again the other way.
void SetFileAttributes(std::u16string_view path, int attributes);

}  // namespace velm

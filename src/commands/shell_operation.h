// The file operations that a user watches: copying, moving, deleting and renaming with confirmation and
// progress, deletions going to the trash. Callers: the file commands.
#pragma once

#include <string>

namespace velm {

// What an operation does.
enum class FileDeed : int { kMove = 1, kCopy = 2, kDelete = 3, kRename = 4 };

// Bits of an operation's flags.
namespace file_flag {
constexpr int kSilent = 0x0004;  // no progress
constexpr int kNoConfirmation = 0x0010;
constexpr int kAllowUndo = 0x0040;        // into the trash instead of deleting
constexpr int kNoConfirmFolder = 0x0200;  // new folders without asking
}  // namespace file_flag

struct FileOperation {
    FileDeed wFunc = FileDeed::kCopy;
    std::u16string pFrom;  // a path, or a mask in its last component
    std::u16string pTo;    // the new path, or the folder to put things in
    int fFlags = 0;
};

// Carries an operation out. Several sources, a mask, a folder that is there and a path that ends in "\"
// make pTo a folder, which is made if it is missing; else it is the new path. What goes wrong is shown
// to the user in a box of its own and ends the operation; neither that nor a refusal reaches the script.
void SHFileOperation(const FileOperation& operation);

}  // namespace velm

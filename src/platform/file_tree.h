// Files and whole folders: copying, moving, removing for good, and moving to the desktop's trash. Links
// within a folder are copied and removed as links and never followed. Failures as in files.h.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velm {

// What a long operation asks on its way. An empty function agrees.
struct TreeQuestions {
    // Whether a file at this script path may be replaced; otherwise it is left out.
    std::function<bool(const std::u16string& path)> mayReplace;
    // Told each entry before its turn; false ends the operation.
    std::function<bool(const std::u16string& path)> goOn;
};

// Copies a file or a folder with all that is in it to a path. A folder there is added to, a file there
// is replaced if that is agreed. Returns false when it was ended. Fails with 75 for a copy onto or into
// itself. What was copied before a failure stays.
bool CopyTree(std::u16string_view from, std::u16string_view to, const TreeQuestions& questions);
// The same, and what was copied is gone from the old place. Within one file system nothing is copied.
bool MoveTree(std::u16string_view from, std::u16string_view to, const TreeQuestions& questions);
// Removes a file or a folder with all that is in it, read-only files too. Refuses the root, "." and "..".
void RemoveTree(std::u16string_view path);

// Moves a file or a folder to the user's trash, from which the desktop can bring it back. Nothing is
// lost when it fails.
void MoveToTrash(std::u16string_view path);

}  // namespace velm

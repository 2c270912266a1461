// Listing files and folders by pattern, in one folder or in a whole tree: the functions ファイル一覧 and
// its kin, and the commands that work on such lists. Not here: the masks of the file system's own search
// (MatchesMask in platform/files.h), which ファイル検索 and the file commands use.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

enum class SearchFor : std::uint8_t { kFiles, kFolders };
enum class SearchIn : std::uint8_t { kFolder, kTree };

// The names that a pattern like C:\data\*.txt;*.log finds, folders with "\" at their end; in a tree each
// with its path from the folder of the pattern. The folder is what stands up to the last "\", the
// current one when there is none. The alternatives behind it are shell patterns (data/shell_pattern.h),
// letter case ignored; a name that matches two of them is found twice, and without any all are found.
// In a tree the entries of a folder come in its order, each subfolder's behind the subfolder itself;
// links to folders are found but not entered, so that no circle of links is endless, and folders that
// can't be read are passed over. Throws Failure when the pattern's own folder can't be read.
// Kept: a "/" ends the folder only for the pattern behind it, not for the folder itself.
std::vector<std::u16string> FindByPattern(std::u16string_view pattern, SearchFor wanted,
                                          SearchIn extent);

}  // namespace velm

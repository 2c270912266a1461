// Settings files: [section] lines with key=value lines below them, in the system code page. What the
// home platform's services for such files do, on the bytes of a file: a change touches the one line that
// it is about, so that comments, order, blank lines and bytes that the code page doesn't know stay.
//
// A section's name stands between "[" and "]", a key before the first "="; blanks round them don't
// count, nor does letter case. Of several sections or keys of one name the first counts. A line that
// begins with ";" is a comment. A value in a pair of quotes is read without them.
//
// Files are read and replaced elsewhere (platform/locked_file.h).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

// The value of a key; nothing when there is none.
std::optional<std::u16string> ProfileValue(std::string_view file, std::u16string_view section,
                                           std::u16string_view key);

// Whether a section, a key and a value come back from the file that they are written to: no line breaks,
// and no key that reads as something else.
bool FitsProfile(std::u16string_view section, std::u16string_view key, std::u16string_view value);

// The file with a value set: in the line of its key, else behind the last line of the section, else in
// a new section at the end. Line ends are those of the file's first line, CR LF in a new one.
std::string SetProfileValue(std::string_view file, std::u16string_view section,
                            std::u16string_view key, std::u16string_view value);

// The file without the line of a key, or without a section: its head and all up to the next one's.
std::string RemoveProfileKey(std::string_view file, std::u16string_view section,
                             std::u16string_view key);
std::string RemoveProfileSection(std::string_view file, std::u16string_view section);

}  // namespace velm

// The text resources: the vocabulary and the messages, lines of key=value. They are embedded by the
// build (src/resources/ID.txt, UTF-8), and each is read once.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velm {

// The ids of the resources.
inline constexpr int kNoteNames = 104;
inline constexpr int kDriveWords = 105;
inline constexpr int kMessages = 106;
inline constexpr int kMessageBoxWords = 201;
inline constexpr int kArchiverWords = 202;
inline constexpr int kProgramWords = 203;
inline constexpr int kAttributeWords = 204;
inline constexpr int kAnswerWords = 205;
inline constexpr int kColorWords = 206;
inline constexpr int kCursorWords = 207;
inline constexpr int kColorDialogFlags = 208;
inline constexpr int kFontDialogFlags = 209;
inline constexpr int kFileDialogFlags = 210;
inline constexpr int kComponentWords = 211;

// A resource's value for a key, compared exactly, the first line that matches; empty if missing.
std::u16string ResourceValue(int id, std::u16string_view key);
// The same as a 32-bit number, which may be written with "&h"; -1 if missing.
std::int32_t ResourceNumber(int id, std::u16string_view key);
// The entries of a resource in order. Empty for an unknown id.
const std::vector<std::pair<std::u16string, std::u16string>>& ResourceEntries(int id);
// The whole text of a resource, framed with CR LF before and after; just that for an unknown id.
const std::u16string& ResourceText(int id);

}  // namespace velm

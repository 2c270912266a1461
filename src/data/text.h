// Small operations on UTF-16 text that everything shares: trimming, replacing, splitting, cutting.
// Positions that scripts see count from 1; the positions here are C++ offsets from 0 unless a
// comment says otherwise. Searches that know about brackets are in data/brackets.h.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velm {

inline constexpr std::u16string_view kCrLf = u"\r\n";
inline constexpr char16_t kIdeographicBlank = u'\u3000';
inline constexpr std::size_t kNotFound = std::u16string_view::npos;

// The text without half-width blanks at both ends. Other white space stays.
std::u16string_view Trim(std::u16string_view text);
std::u16string_view TrimLeft(std::u16string_view text);
std::u16string_view TrimRight(std::u16string_view text);

// The text without its last n units; empty when it has no more than n.
std::u16string_view TrimRight(std::u16string_view text, std::size_t n);

// Where the needle begins at or behind the offset; kNotFound if nowhere. As std::u16string_view::find
// tells it, but it looks at several units a step.
std::size_t FindText(std::u16string_view text, std::u16string_view needle, std::size_t from = 0);

// Every occurrence of needle replaced, from the left, not looking into what was put in.
// An empty needle changes nothing.
std::u16string ReplaceAll(std::u16string_view text, std::u16string_view needle,
                          std::u16string_view replacement);

// Appends ReplaceAll to a text, which must be another one. One with room for it takes no memory.
void AppendReplaced(std::u16string& out, std::u16string_view text, std::u16string_view needle,
                    std::u16string_view replacement);

// The parts between the separators; always at least one part. The views point into text.
std::vector<std::u16string_view> Split(std::u16string_view text, std::u16string_view separator);
std::vector<std::u16string_view> SplitLines(std::u16string_view text);

// The parts with the separator between them.
std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator);

// The three commas of lists; the place of the first one at or behind the offset, or the size of the text.
constexpr bool IsAnyComma(char16_t unit) { return unit == u',' || unit == u'、' || unit == u'，'; }
inline std::size_t FindAnyComma(std::u16string_view text, std::size_t from = 0) {
    while (from < text.size() && !IsAnyComma(text[from])) ++from;
    return from;
}

// The number of occurrences of needle, none overlapping; 0 for an empty needle.
std::size_t CountOf(std::u16string_view text, std::u16string_view needle);

// 1-based position of the n-th occurrence of needle; 0 when there are fewer, or n is below 1.
std::size_t NthToken(std::u16string_view text, std::u16string_view needle, std::size_t n);

// Throws Failure(7) when a text of so many units would be made out of shorter ones. The system grants
// far more memory than the machine has and ends the process when it is touched; a slip of the pen such
// as 繰り返せ（1000000000、「abc」） must be a failure of the function instead.
inline constexpr std::uint64_t kLongestMadeText = 100'000'000;
void CheckMadeLength(std::uint64_t units);

// The text before its first NUL.
std::u16string_view BeforeNul(std::u16string_view text);

// The text without open and close when it begins with the one and ends with the other.
std::u16string_view StripPair(std::u16string_view text, std::u16string_view open,
                              std::u16string_view close);

// The text between the first open at or behind the offset start and the next close; with keep the
// pair itself too. Empty when either is missing.
std::u16string_view BetweenPair(std::u16string_view text, std::size_t start,
                                std::u16string_view open, std::u16string_view close, bool keep);

// "1" or "0".
std::u16string_view BoolText(bool flag);

inline bool Contains(std::u16string_view text, std::u16string_view needle) {
    return FindText(text, needle) != kNotFound;
}

// Paths as scripts write them. FolderOf gives the text up to and with the last backslash, empty if
// none; FileNameOf the text behind the last "\" or "/"; ExtensionOf the lower-cased text behind
// the last ".", empty if none; WithBackslash adds "\" unless the last unit is one.
std::u16string_view FolderOf(std::u16string_view path);
std::u16string_view FileNameOf(std::u16string_view path);
std::u16string ExtensionOf(std::u16string_view path);
std::u16string WithBackslash(std::u16string_view path);

}  // namespace velm

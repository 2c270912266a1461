// The kinds of objects: the words that scripts use for them, and the templates that they are made from.
// Three words belong to a kind, and where they differ that is wanted: the one that a name is looked up
// by, the one that it is made by, the one that it is shown by.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/toolkit.h"

namespace velm {

struct ControlTemplate {
    ControlClass which;
    std::u16string_view array;  // member Name
    std::int32_t width;         // pixels
    std::int32_t height;
    std::u16string_view caption;  // also the text that a new control shows
};

// How the maker makes a kind.
enum class MakerKind : std::uint8_t {
    kArray,    // an element of a control array of the window
    kLine,     // the same; its word stands alone
    kTimer,    // the same; its number is a plain one
    kRunTime,  // a control of its own, with a prefix and a counted number
    kLater,    // its control isn't part of this build: error 103
};

// A row in the order in which the maker looks for words.
struct MakerRow {
    std::u16string_view word;
    MakerKind kind;
    std::u16string_view array;    // also the template of a run-time control
    std::u16string_view prefix;   // of the name of a run-time control
    std::u16string_view propKey;  // of the highest number of a run-time control
};

inline constexpr std::u16string_view kLineWord = u"線";

// The maker's words in its order.
std::span<const MakerRow> MakerRows();
// The template of an array; nullptr for an unknown one.
const ControlTemplate* FindTemplate(std::u16string_view array);

// What the resolver does with a name that begins with a word.
enum class ResolverKind : std::uint8_t { kPrinter, kDrive, kTurtle, kTimer, kLine, kControl };
struct ResolverRow {
    std::u16string_view word;
    ResolverKind kind;
};
// In the order of its tests, which come behind those of the window words.
std::span<const ResolverRow> ResolverRows();

struct WindowWord {
    std::u16string_view word;
    // 0 standard, 1 fixed, 2 without frame, 3 tool, 4 fixed tool, 5 whole screen
    std::int32_t kind;
};
std::span<const WindowWord> WindowWords();

// The word by which an object of a class without a name of its own is shown; empty for windows and for
// what is on no window.
std::u16string_view ShownWord(ControlClass which);

}  // namespace velm

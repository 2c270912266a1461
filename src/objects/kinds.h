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
    kRunTime,  // a control of its own, with a prefix and a counted number
    kPlugin,   // 拡張オブジェクト
    kTurtle,
    kLater,  // its control isn't part of this build: error 103
};

// A row in the order in which the maker looks for words.
struct MakerRow {
    std::u16string_view word;
    MakerKind kind;
    ControlClass which;
    std::u16string_view name;     // the array, or the prefix of a run-time control
    std::u16string_view propKey;  // of the highest number of a run-time control
};

// The maker's words in its order.
std::span<const MakerRow> MakerRows();
// The template of an array; nullptr for an unknown one.
const ControlTemplate* FindTemplate(std::u16string_view array);

// What the resolver does with a name that begins with a word, in the order of its tests.
enum class ResolverKind : std::uint8_t {
    kActiveControl,
    kActiveWindow,
    kFirstWindow,
    kDialogs,
    kWindow,
    kPrinter,
    kDrive,
    kTurtle,
    kTimer,
    kLine,
    kControl,
};
struct ResolverRow {
    std::u16string_view word;
    ResolverKind kind;
};
std::span<const ResolverRow> ResolverRows();

// The window words in the order of the resolver and of creation; the position is the kind's number but
// for the order: see WindowKindOf.
struct WindowWord {
    std::u16string_view word;
    std::int32_t
        kind;  // 0 standard, 1 fixed, 2 without frame, 3 tool, 4 fixed tool, 5 whole screen
};
std::span<const WindowWord> WindowWords();

}  // namespace velm

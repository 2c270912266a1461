// A picture of 書式 taken apart into its units, quotes and backslashes resolved. Shared by the kinds
// of pictures; nobody else needs it.
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace velm {

/// One unit of a picture; a literal one means itself, whatever it is.
struct PictureUnit {
    char16_t unit;
    bool literal;

    bool Is(char16_t code) const { return !literal && unit == code; }
};

using PictureUnits = std::vector<PictureUnit>;
using PictureSection = std::span<const PictureUnit>;

/// "text" is literal, an unclosed quote to the end, and so is the unit behind a backslash.
PictureUnits ReadPicture(std::u16string_view picture);

/// The sections between the semicolons; at least one. They point into the units.
std::vector<PictureSection> SplitSections(const PictureUnits& units);

}  // namespace velm

// Showing a value in a picture: what 書式 does. A picture is a name (Standard, Long Date ...) or a text
// of codes; its first code tells whether it shows a number, a date or a text. The kinds are in
// number_pictures.h, date_pictures.h and text_pictures.h.
#pragma once

#include <string>
#include <string_view>

namespace velm {

/// The value's text shown in the picture. A number picture reads the text as a number, or as a date
/// whose number it shows; a date picture reads it as a date, or as the number of one. A text that is
/// neither comes back as it is, and so does any text for an empty picture. Throws Failure(6) for a
/// number that is no date where one is needed.
std::u16string FormatPicture(std::u16string_view text, std::u16string_view picture);

}  // namespace velm

// Text pictures: @ and & places, < and > for letter case, ! for filling from the left, and a second
// section for the empty text.
#pragma once

#include <string>
#include <string_view>

#include "data/picture_units.h"

namespace velm {

/// The text in the picture. The places are filled from the right, with ! from the left; a place
/// without a unit of the text is a blank for @ and nothing for &. Units that have no place stand with
/// the last place that is filled. Without any place the text stands whole where the first < > or !
/// does.
std::u16string FormatTextPicture(std::u16string_view text, const PictureUnits& picture);

}  // namespace velm

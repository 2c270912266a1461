// The margins of a printed page as scripts write them: "left,top,right,bottom" in hundredths of a
// millimetre.
#pragma once

#include <string>
#include <string_view>

class QPrinter;

namespace velm {

std::u16string MarginsText(const QPrinter& printer);
// Throws Failure(5) for anything but four numbers that leave room on the page, 13 for no numbers.
void SetMargins(QPrinter& printer, std::u16string_view text);

}  // namespace velm

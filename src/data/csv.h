// The text of a ".csv" file to list text and back, with their kept limits: a quote inside an item is not
// doubled, the quote state runs on over lines, the last item of a line is not escaped.
#pragma once

#include <string>
#include <string_view>

namespace velm {

std::u16string CsvToList(std::u16string_view text);
std::u16string ListToCsv(std::u16string_view text);

}  // namespace velm

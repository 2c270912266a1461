// Preparing source: from the text of a script to the statements of a program, one a physical line, so
// that a statement's index plus one is always the line number that the author sees.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/run_state.h"

namespace velm {

// Removes tabs and comments, joins continued lines, checks brackets (reporting what is missing) and
// analyses every line.
std::vector<StatementPtr> PrepareProgram(std::u16string_view text);

// The second step of it, on the lines in place; a line that was absorbed stays as an empty one.
void NormaliseLines(std::vector<std::u16string>& lines);

// Appends a program holding the statements to Programs; its index.
std::int32_t AddProgram(std::vector<StatementPtr> statements, std::u16string_view fileName);

}  // namespace velm

// Which rows of the tables a run has used: the tests compare it with all rows that have a handler.
#pragma once

#include <cstdio>

namespace velm {

// Every row with a handler and every numbered message, one a line: "command 表示", "function 左",
// "setting 色", "message 1".
void ListRows(std::FILE* out);

// Appends the rows that were used to the file that the environment variable VELM_COVERAGE names, in the
// same form. Nothing without the variable.
void WriteCoverage();

}  // namespace velm

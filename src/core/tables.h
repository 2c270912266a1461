// What the layers above the core put in place at the start and at each run.
#pragma once

#include <cstdint>

namespace velm {

// Fill the tables of the process, in table order. Called once, at the start.
void BuildCommandTable();   // commands/command_table.cpp
void BuildFunctionTable();  // functions/function_table.cpp
void BuildSettingTable();   // commands/setting_words.cpp

// Starts the random numbers of a run (functions/number_functions.cpp).
void SeedRandom(std::uint32_t seed);

}  // namespace velm

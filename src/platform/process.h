// Starting programs and asking about them, and the session of the desktop.
#pragma once

#include <cstdint>
#include <string_view>

namespace velm {

// Starts a program from a command line: a program, quoted if it holds blanks, and its words. A program
// without a folder is sought as shells do; the home platform's well-known programs stand for those that
// this desktop has. Returns the process id. Fails with 53 for a program that isn't there and 5 for a
// file that is no program.
std::int64_t StartProgram(std::u16string_view commandLine);

// Whether a program that StartProgram started is still running.
bool IsProgramRunning(std::int64_t processId);

// Asks the session manager to end the session: flags 0 and 4 log off, 2 and 3 start the machine anew.
// A refusal ends it silently.
void EndSession(int flags);

// Lets the thread sleep for a while.
void SleepMilliseconds(int milliseconds);

}  // namespace velm

// What a terminal program asks of the system before anything else.
#pragma once

namespace velm {

// Holds the places of standard input, output and error that the caller of the process has closed: a
// file that a script opens would else take the place, and be written what is meant for the terminal.
// Reading from and writing to such a place fails.
void HoldStandardStreams();

// Calls the handler on Ctrl-C, in a signal's context. What waits for input then ends its wait.
void CatchInterrupt(void (*handler)(int signal));

// A closed pipe is a failed write, and no more.
void IgnoreClosedPipes();

}  // namespace velm

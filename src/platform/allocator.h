// How the process gets its memory from the system.
#pragma once

namespace velm {

// Keeps memory that was given back for the next large text, up to 64 MB, instead of returning it to the system
// at once: getting it anew costs a page fault for every 4 KB. Called once, first of all.
void KeepFreedMemory();

}  // namespace velm

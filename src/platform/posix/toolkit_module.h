// The toolkit as a library of its own, for a program that starts without it.
#pragma once

namespace velm {

class Toolkit;

// Loads the toolkit's library from beside the program, or from ../lib/velmscript, and starts it; nullptr
// when there is none or it can't be used here. For SetToolkitStarter.
Toolkit* LoadToolkitModule();

}  // namespace velm

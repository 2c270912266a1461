// The toolkit's start.
#pragma once

namespace velm {

class Toolkit;

// The toolkit of the process, with its fonts and its desktop in force. Starts the application, on screen or
// off, where no face has done so. For SetToolkitStarter.
Toolkit* StartQtToolkit();

}  // namespace velm

// For programs that load the toolkit as a library of its own.
extern "C" velm::Toolkit* VelmStartToolkit();

// The start of a terminal program on a POSIX system.
#include "platform/startup.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <initializer_list>

namespace velm {

// The lowest free number is the one that is missing. A place for the other direction: no use of it
// succeeds.
void HoldStandardStreams() {
    for (const int place : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(place, F_GETFD) != -1) continue;
        static_cast<void>(open("/dev/null", place == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

// Without SA_RESTART, so that a read of the terminal is interrupted.
void CatchInterrupt(void (*handler)(int signal)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
}

void IgnoreClosedPipes() { signal(SIGPIPE, SIG_IGN); }

}  // namespace velm

// The stack on a POSIX system.
#include "platform/stack.h"

#include <pthread.h>
#include <sys/resource.h>

namespace velm {

namespace {

// Raises the soft limit: on the main thread the stack grows up to it as pages are touched.
void RaiseLimit(std::size_t wantedBytes) {
    rlimit limit = {};
    if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return;
    if (limit.rlim_cur >= wantedBytes) return;
    rlimit wanted = limit;
    wanted.rlim_cur = wantedBytes;
    if (limit.rlim_max != RLIM_INFINITY && limit.rlim_max < wanted.rlim_cur) {
        wanted.rlim_cur = limit.rlim_max;
    }
    setrlimit(RLIMIT_STACK, &wanted);
}

}  // namespace

char* StackEnd(std::size_t wantedBytes) {
    RaiseLimit(wantedBytes);
    pthread_attr_t attributes;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return nullptr;
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    char* end = static_cast<char*>(lowest);
    char* top = end + size;
    // A stack without a limit is still used only so far.
    return size > wantedBytes ? top - wantedBytes : end;
}

}  // namespace velm

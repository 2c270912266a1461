// The stack on a POSIX system.
#include "platform/stack.h"

#include <pthread.h>
#include <sys/auxv.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>

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

// Where the main thread's stack begins: the system puts the program's file name there first, in front of
// an empty word. nullptr where it doesn't tell.
char* MainStackTop() {
    const auto* name = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
    if (name == nullptr) return nullptr;
    const auto behind =
        reinterpret_cast<std::uintptr_t>(name) + std::strlen(name) + 1 + sizeof(void*);
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    return reinterpret_cast<char*>((behind + page - 1) / page * page);
}

struct Extent {
    char* end = nullptr;  // the lowest address
    std::size_t size = 0;
};

// The main thread's, without reading the system's list of all that the process has mapped, which takes
// longer than much else of a start. Nothing where the stack isn't where it would be.
Extent MainStack() {
    rlimit limit = {};
    char* const top = MainStackTop();
    if (getpid() != gettid() || top == nullptr) return {};
    if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return {};
    const auto size = static_cast<std::size_t>(limit.rlim_cur);
    const char* const here = StackPointer();
    if (here > top || static_cast<std::size_t>(top - here) > size) return {};
    return {top - size, size};
}

Extent AnyStack() {
    pthread_attr_t attributes;
    void* lowest = nullptr;
    std::size_t size = 0;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return {};
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return {static_cast<char*>(lowest), size};
}

}  // namespace

char* StackEnd(std::size_t wantedBytes) {
    RaiseLimit(wantedBytes);
    Extent stack = MainStack();
    if (stack.end == nullptr) stack = AnyStack();
    // A stack without a limit is still used only so far.
    return stack.size > wantedBytes ? stack.end + (stack.size - wantedBytes) : stack.end;
}

}  // namespace velm

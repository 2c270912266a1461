// Where the stack ends, against what the thread library reads from the system's own list.
#include "platform/stack.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

namespace velm {
namespace {

constexpr std::size_t kWanted = std::size_t{64} << 20;

struct Told {
    char* end = nullptr;
    char* top = nullptr;
};

Told ToldStack() {
    pthread_attr_t attributes;
    void* lowest = nullptr;
    std::size_t size = 0;
    EXPECT_EQ(pthread_getattr_np(pthread_self(), &attributes), 0);
    pthread_attr_getstack(&attributes, &lowest, &size);
    pthread_attr_destroy(&attributes);
    return {static_cast<char*>(lowest), static_cast<char*>(lowest) + size};
}

TEST(Stack, OfTheMainThreadEndsWhereItsLimitIs) {
    const char* const end = StackEnd(kWanted);
    const Told told = ToldStack();
    EXPECT_LE(std::labs(end - told.end), sysconf(_SC_PAGESIZE));
    EXPECT_GT(StackPointer(), end);
    EXPECT_LE(static_cast<std::size_t>(StackPointer() - end), kWanted);
    // A smaller wish is granted from the top.
    EXPECT_GT(StackEnd(kWanted / 8), end + kWanted / 2);
}

TEST(Stack, CanBeUsedToItsEnd) {
    const pid_t child = fork();
    if (child == 0) {
        const long page = sysconf(_SC_PAGESIZE);
        const char* const end = StackEnd(kWanted);
        for (char* at = StackPointer() - page; at > end + page; at -= page) {
            *static_cast<volatile char*>(at) = 1;
        }
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST(Stack, OfAnotherThreadIsItsOwn) {
    std::thread([] {
        const Told told = ToldStack();
        EXPECT_EQ(StackEnd(kWanted), told.end);
        EXPECT_GT(StackPointer(), told.end);
        EXPECT_LT(StackPointer(), told.top);
    }).join();
}

}  // namespace
}  // namespace velm

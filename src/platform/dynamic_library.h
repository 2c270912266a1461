// Functions of dynamic libraries, found by name and called with words of 32 bits and with memory.
//
// A script knows numbers of 32 bits only. Memory that is passed to a library therefore lies below 2 GB,
// so that its address is such a number; an address above that, which only a library can give, goes to
// the script as a handle: a number that stands for it and turns back into it when it is passed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velm {

class DynamicLibrary {
  public:
    // Loads a library. The name is tried as written, then with ".so" behind it, with "lib" before it, and
    // with both; then, as the installed libraries without development files have it, with the highest
    // version number that the folders of the system hold ("z": libz.so.1). A name with a folder is a
    // script path. Nothing when there is no such library.
    static std::optional<DynamicLibrary> Open(std::u16string_view name);
    DynamicLibrary(DynamicLibrary&& other) noexcept;
    DynamicLibrary& operator=(DynamicLibrary&&) = delete;
    // Gives the library back. Its code and data stay where they are, since what it gave out may point
    // there.
    ~DynamicLibrary();

    // The address of a function by its exact name; nullptr when there is none.
    void* Find(std::u16string_view function) const;

  private:
    explicit DynamicLibrary(void* handle) : handle_(handle) {}

    void* handle_;
};

// A library that writes a little too much finds this many bytes behind a block that are nobody else's.
inline constexpr std::size_t kRoomBehindBlock = 256;

// Memory for one argument, zeroed, with that room behind it. It stays for long after the call, for
// libraries keep addresses; of all that was ever given out the last 32 MB are kept, and blocks over 1 MB
// until the process ends. Throws Failure(7) for more than that can hold.
std::byte* LibraryMemory(std::size_t bytes);
// Begins to count the memory of a new call: all blocks of one call stay apart.
void BeginLibraryCall();

// The number by which a script knows a word of the machine that a library gave, and back. Numbers of 32
// bits are themselves; an address beyond is a handle; the low half stands for anything else.
std::int32_t ToScriptNumber(std::int64_t machineWord);
std::int64_t ToMachineWord(std::int32_t scriptNumber);

// Calls a function with the words as its arguments by the C convention; the word that it returns. Throws
// Failure(5) when the call can't be made.
std::int64_t CallForeign(void* function, std::span<const std::int64_t> words);

}  // namespace velm

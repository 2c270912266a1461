// Dynamic libraries through the system's loader and libffi. See dynamic_library.h.
#include "platform/dynamic_library.h"

#include <dirent.h>
#include <dlfcn.h>
#include <ffi.h>
#include <sys/mman.h>
#include <unistd.h>

#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "data/failure.h"
#include "data/text.h"
#include "data/utf.h"
#include "platform/files.h"
#include "platform/posix/late_library.h"

namespace velm {

namespace {

// The functions of the library for calls that are used, and its type of a 64-bit word.
struct Ffi {
    LateLibrary file{"libffi.so.8", u"libffi"};
    decltype(&ffi_prep_cif) prepare = file["ffi_prep_cif"];
    decltype(&ffi_call) call = file["ffi_call"];
    ffi_type* word = file["ffi_type_sint64"];
};

const Ffi& TheFfi() {
    static const Ffi library;
    return library;
}

// Within the first 2 GB an address is a positive number of 32 bits.
constexpr std::uintptr_t kLowEnd = std::uintptr_t{1} << 31;
constexpr std::size_t kRingBytes = std::size_t{32} << 20;
constexpr std::size_t kLargestInRing = std::size_t{1} << 20;
constexpr std::size_t kMostAlone = std::size_t{512} << 20;
constexpr std::size_t kAlignment = 16;

// Handles are numbers that hardly anything else uses: 2,113,929,216 and up.
constexpr std::int32_t kFirstHandle = 0x7E000000;
constexpr std::size_t kMostHandles = 0x00FFFFFF;

constexpr const char* kLibraryFolders[] = {
    "/usr/local/lib",
    "/lib/x86_64-linux-gnu",
    "/usr/lib/x86_64-linux-gnu",
    "/lib64",
    "/lib/aarch64-linux-gnu",
    "/usr/lib/aarch64-linux-gnu",
    "/usr/lib64",
    "/lib",
    "/usr/lib",
};

// A library stays in memory also when it has been given back.
void* Load(const std::string& name) { return dlopen(name.c_str(), RTLD_NOW | RTLD_NODELETE); }

// The versions of a file name as numbers: "libz.so.1.2" behind "libz.so" is 1, 2. Nothing for a name
// that goes on with anything else.
std::vector<int> VersionOf(std::string_view name, std::string_view base) {
    std::vector<int> version;
    if (!name.starts_with(base)) return version;
    for (const char unit : name.substr(base.size())) {
        if (unit == '.') {
            version.push_back(0);
        } else if (unit < '0' || unit > '9' || version.empty() || version.back() > 100'000'000) {
            return {};
        } else {
            version.back() = version.back() * 10 + (unit - '0');
        }
    }
    return version;
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

// The file of a folder that is the base name with the highest version; empty when there is none.
std::string HighestVersion(const char* folder, const std::string& base) {
    const std::unique_ptr<DIR, CloseFolder> open(opendir(folder));
    std::string best;
    std::vector<int> bestVersion;
    while (const dirent* entry = open ? readdir(open.get()) : nullptr) {
        const std::vector<int> version = VersionOf(entry->d_name, base);
        if (version <= bestVersion) continue;
        bestVersion = version;
        best = entry->d_name;
    }
    return best;
}

void* LoadVersioned(const std::string& base) {
    for (const char* folder : kLibraryFolders) {
        const std::string name = HighestVersion(folder, base);
        if (name.empty()) continue;
        if (void* handle = Load(std::string(folder) + "/" + name)) return handle;
    }
    return nullptr;
}

void* LoadByName(const std::string& name) {
    for (const char* prefix : {"", "lib"}) {
        for (const char* suffix : {"", ".so"}) {
            if (void* handle = Load(prefix + name + suffix)) return handle;
        }
    }
    // libc.so is a text for the linker, and libz.so belongs to the development files.
    const std::string base = name.ends_with(".so") ? name : name + ".so";
    if (void* handle = LoadVersioned("lib" + base)) return handle;
    return LoadVersioned(base);
}

// Pages below 2 GB, or nullptr.
std::byte* MapLow(std::size_t bytes) {
    const int protection = PROT_READ | PROT_WRITE;
    const int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
#ifdef MAP_32BIT
    void* got = mmap(nullptr, bytes, protection, flags | MAP_32BIT, -1, 0);
    if (got != MAP_FAILED) return static_cast<std::byte*>(got);
#endif
    constexpr std::uintptr_t kStep = std::uintptr_t{16} << 20;
    for (std::uintptr_t at = kStep; at + bytes < kLowEnd; at += kStep) {
        // The address is only a wish; what isn't granted low is given back.
        void* wish = std::bit_cast<void*>(at);
        void* hinted = mmap(wish, bytes, protection, flags, -1, 0);
        if (hinted == MAP_FAILED) return nullptr;
        if (reinterpret_cast<std::uintptr_t>(hinted) + bytes <= kLowEnd) {
            return static_cast<std::byte*>(hinted);
        }
        munmap(hinted, bytes);
    }
    return nullptr;
}

struct MemoryState {
    std::byte* ring = nullptr;
    std::size_t next = 0;
    std::size_t alone = 0;   // bytes in blocks of their own
    std::size_t inCall = 0;  // bytes of the ring that the current call holds
};

MemoryState memory;

std::byte* FromRing(std::size_t size) {
    if (memory.ring == nullptr) memory.ring = MapLow(kRingBytes);
    if (memory.ring == nullptr) throw Failure(failure::kOutOfMemory);
    std::size_t skipped = 0;
    if (memory.next + size > kRingBytes) {
        skipped = kRingBytes - memory.next;
        memory.next = 0;
    }
    memory.inCall += size + skipped;
    if (memory.inCall > kRingBytes) throw Failure(failure::kOutOfMemory);
    std::byte* block = memory.ring + memory.next;
    memory.next += size;
    std::memset(block, 0, size);
    return block;
}

std::byte* OnItsOwn(std::size_t size) {
    if (size > kMostAlone - memory.alone) throw Failure(failure::kOutOfMemory);
    std::byte* block = MapLow(size);
    if (block == nullptr) throw Failure(failure::kOutOfMemory);
    memory.alone += size;
    return block;
}

// Handles and the addresses that they stand for.
struct HandleTable {
    std::vector<std::int64_t> addresses;
    std::unordered_map<std::int64_t, std::int32_t> handles;
};

HandleTable& Handles() {
    static HandleTable table;
    return table;
}

// Whether a word is an address in use, as far as the system tells: the page is mapped.
bool IsMapped(std::int64_t word) {
    if (word <= 0) return false;
    const auto pageBytes = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t page = static_cast<std::uintptr_t>(word) & ~(pageBytes - 1);
    unsigned char resident = 0;
    return mincore(std::bit_cast<void*>(page), 1, &resident) == 0;
}

std::int32_t HandleOf(std::int64_t address) {
    HandleTable& table = Handles();
    const auto known = table.handles.find(address);
    if (known != table.handles.end()) return known->second;
    if (table.addresses.size() >= kMostHandles) throw Failure(failure::kOutOfMemory);
    const std::int32_t handle = kFirstHandle + static_cast<std::int32_t>(table.addresses.size());
    table.addresses.push_back(address);
    table.handles.emplace(address, handle);
    return handle;
}

}  // namespace

std::optional<DynamicLibrary> DynamicLibrary::Open(std::u16string_view name) {
    if (name.empty() || Contains(name, std::u16string_view(u"\0", 1))) return std::nullopt;
    const bool hasFolder = name.find_first_of(u"\\/") != kNotFound;
    void* handle = nullptr;
    if (!hasFolder) {
        handle = LoadByName(Utf16ToUtf8(name));
    } else {
        try {
            std::string path = NativePath(name);
            if (path.find('/') == std::string::npos) path.insert(0, "./");
            handle = Load(path);
        } catch (const Failure&) {
            return std::nullopt;
        }
    }
    if (handle == nullptr) return std::nullopt;
    return DynamicLibrary(handle);
}

DynamicLibrary::DynamicLibrary(DynamicLibrary&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)) {}

DynamicLibrary::~DynamicLibrary() {
    if (handle_ != nullptr) dlclose(handle_);
}

void* DynamicLibrary::Find(std::u16string_view function) const {
    return dlsym(handle_, Utf16ToUtf8(BeforeNul(function)).c_str());
}

void BeginLibraryCall() { memory.inCall = 0; }

std::byte* LibraryMemory(std::size_t bytes) {
    if (bytes > kMostAlone) throw Failure(failure::kOutOfMemory);
    const std::size_t size = (bytes + kRoomBehindBlock + kAlignment - 1) / kAlignment * kAlignment;
    return size > kLargestInRing ? OnItsOwn(size) : FromRing(size);
}

std::int32_t ToScriptNumber(std::int64_t machineWord) {
    const auto low = static_cast<std::int32_t>(machineWord);
    // A function that returns 32 bits leaves the upper half empty, also of a number below zero.
    if (low == machineWord || machineWord >> 32 == 0) return low;
    return IsMapped(machineWord) ? HandleOf(machineWord) : low;
}

std::int64_t ToMachineWord(std::int32_t scriptNumber) {
    const HandleTable& table = Handles();
    const std::int64_t index = std::int64_t{scriptNumber} - kFirstHandle;
    const bool isHandle = index >= 0 && index < std::ssize(table.addresses);
    return isHandle ? table.addresses[static_cast<std::size_t>(index)] : scriptNumber;
}

std::int64_t CallForeign(void* function, std::span<const std::int64_t> words) {
    std::vector<std::int64_t> held(words.begin(), words.end());
    const Ffi& ffi = TheFfi();
    std::vector<ffi_type*> types(held.size(), ffi.word);
    std::vector<void*> places;
    places.reserve(held.size());
    for (std::int64_t& word : held) places.push_back(&word);
    ffi_cif call;
    const auto count = static_cast<unsigned>(held.size());
    if (ffi.prepare(&call, FFI_DEFAULT_ABI, count, ffi.word, types.data()) != FFI_OK) {
        throw Failure(failure::kBadCall);
    }
    ffi_arg result = 0;
    ffi.call(&call, FFI_FN(function), &result, places.data());
    return static_cast<std::int64_t>(result);
}

}  // namespace velm

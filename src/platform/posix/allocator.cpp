// The settings of the C library's allocator.
#include "platform/allocator.h"

#include <malloc.h>

namespace velm {

void KeepFreedMemory() {
    constexpr int kMegabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 32 * kMegabyte);
    mallopt(M_TRIM_THRESHOLD, 64 * kMegabyte);
}

}  // namespace velm

#include "output/heap_reuse.h"

// Any header of the C library tells whether it is glibc.
#include <cstdlib>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace zantor {
namespace {

#if defined(__GLIBC__)
// Blocks up to this size come from the heap (the largest value the C library takes).
constexpr int kHeapBlockLimit = 32 * 1024 * 1024;
// Free memory at the heap's top is kept up to this much: both compression buffers and more.
constexpr int kKeptFreeMemory = 64 * 1024 * 1024;
// The C library's own default for giving the heap's top back.
constexpr int kDefaultTrimThreshold = 128 * 1024;
#endif

}  // namespace

HeapReuse::HeapReuse() {
#if defined(__GLIBC__)
    mallopt(M_MMAP_THRESHOLD, kHeapBlockLimit);
    mallopt(M_TRIM_THRESHOLD, kKeptFreeMemory);
#endif
}

HeapReuse::~HeapReuse() {
#if defined(__GLIBC__)
    mallopt(M_TRIM_THRESHOLD, kDefaultTrimThreshold);
    malloc_trim(0);
#endif
}

}  // namespace zantor

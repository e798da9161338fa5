#include "output/heap_reuse.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

#include "support/test_support.h"

namespace zantor {
namespace {

#if defined(__GLIBC__)

// Through a volatile pointer, so that the compiler cannot leave out a block nobody reads.
void* (*volatile gAllocate)(std::size_t) = std::malloc;
void (*volatile gRelease)(void*) = std::free;

// Bytes the heap holds from the system, and of them the free ones.
std::size_t HeapBytes() {
    return mallinfo2().arena;
}
std::size_t FreeHeapBytes() {
    return mallinfo2().fordblks;
}

TEST(HeapReuse, AFreedPageBufferStaysForTheNextPageAndGoesBackAfterTheJob) {
    if (test::kAddressSanitizer) {
        GTEST_SKIP() << "AddressSanitizer's allocator keeps no glibc heap to measure";
    }
    constexpr std::size_t kBuffer = 12 * 1024 * 1024;  // above Qt's 10 MB compression chunk
    std::size_t held = 0;
    {
        HeapReuse reuse;
        for (int page = 0; page < 3; ++page) {
            const std::size_t before = HeapBytes();
            void* block = gAllocate(kBuffer);
            ASSERT_NE(block, nullptr);
            std::memset(block, page, kBuffer);
            // From the second page on, the first page's memory serves again.
            if (page > 0) {
                EXPECT_EQ(HeapBytes(), before) << "page " << page;
            }
            gRelease(block);
            EXPECT_GE(FreeHeapBytes(), kBuffer) << "page " << page;
        }
        held = HeapBytes();
        EXPECT_GE(held, kBuffer);
    }
    EXPECT_LE(HeapBytes() + kBuffer, held);
}

#endif

}  // namespace
}  // namespace zantor

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <platform/memory.h>

namespace {

TEST(GlobalMemory, ZeroesWhatItAdds) {
    const HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, 100);
    std::memset(GlobalLock(handle), 0xEE, 100);
    GlobalUnlock(handle);
    ASSERT_EQ(GlobalReAlloc(handle, 50, GMEM_MOVEABLE), handle);
    ASSERT_EQ(GlobalReAlloc(handle, 5000, GHND), handle);
    const auto* bytes = static_cast<const unsigned char*>(GlobalLock(handle));
    EXPECT_EQ(std::count(bytes, bytes + 50, 0xEE), 50);
    EXPECT_EQ(std::count(bytes + 50, bytes + 5000, 0), 4950);
    GlobalFree(handle);
}

TEST(GlobalMemory, CountsLocks) {
    const HGLOBAL handle = GlobalAlloc(GHND, 8);
    EXPECT_EQ(GlobalLock(handle), GlobalLock(handle));
    EXPECT_EQ(GlobalReAlloc(handle, 16, 0), nullptr) << "a locked block stays";
    EXPECT_EQ(GlobalSize(handle), 8U);
    EXPECT_TRUE(GlobalUnlock(handle));
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_FALSE(GlobalUnlock(handle));
    EXPECT_EQ(GlobalReAlloc(handle, 16, 0), handle);
    GlobalFree(handle);
}

TEST(GlobalMemory, FailureIsNull) {
    EXPECT_EQ(GlobalAlloc(GHND, SIZE_MAX), nullptr);
    const HGLOBAL handle = GlobalAlloc(GHND, 8);
    EXPECT_EQ(GlobalReAlloc(handle, SIZE_MAX, GMEM_MOVEABLE), nullptr);
    EXPECT_EQ(GlobalSize(handle), 8U);
    EXPECT_EQ(GlobalFree(handle), nullptr);
    EXPECT_EQ(GlobalFree(handle), handle);
    EXPECT_EQ(GlobalLock(handle), nullptr);
    EXPECT_EQ(GlobalLock(nullptr), nullptr);
}

TEST(GlobalMemory, ThreadsWorkSideBySide) {
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int id = 0; id < 4; ++id) {
        threads.emplace_back([id] {
            for (int round = 0; round < 500; ++round) {
                const HGLOBAL handle = GlobalAlloc(GHND, 16);
                std::memset(GlobalLock(handle), id, 16);
                GlobalReAlloc(handle, 4096, GMEM_MOVEABLE);
                EXPECT_EQ(static_cast<const char*>(GlobalLock(handle))[15], id);
                GlobalFree(handle);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace

#include <atomic>
#include <latch>
#include <thread>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

// A case that hangs is caught by the test runner's time limit. Whether a thread waits is read from
// the lock itself, never guessed from time.
struct KVBufferLockProbe {
    static void AwaitWaiting(CKVFrameBuffer& surface, LONG readers, LONG writers) {
        KVBufferLock& lock = surface.m_BufferLock;
        for (;; std::this_thread::yield()) {
            const std::lock_guard guard(lock.m_Mutex);
            if (lock.m_WaitingReaders == readers && lock.m_WaitingWriters == writers) {
                return;
            }
        }
    }
};

namespace {

class BufferLock : public testing::Test {
  protected:
    void AwaitWaiting(LONG readers, LONG writers) {
        KVBufferLockProbe::AwaitWaiting(surface, readers, writers);
    }

    // A thread that takes a hold, notes its turn and gives the hold back.
    std::jthread Writer(int& turn) {
        return std::jthread([&] {
            surface.WriteLock();
            turn = ++turns;
            surface.WriteUnlock();
        });
    }
    std::jthread Reader(int& turn) {
        return std::jthread([&] {
            surface.ReadLock();
            turn = ++turns;
            surface.ReadUnlock();
        });
    }

    CKVFrameBuffer surface{8, 8, 1};
    std::atomic<int> turns{0};
    int first = 0;
    int second = 0;
};

TEST_F(BufferLock, WaitingWriterLetsReadersJoinAndGetsItsTurnAfterTheLast) {
    surface.ReadLock();
    std::jthread writer = Writer(second);
    AwaitWaiting(0, 1);
    Reader(first).join();
    EXPECT_EQ(turns, 1);
    surface.ReadUnlock();
    writer.join();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
}

TEST_F(BufferLock, LastReaderOutMayBeAnotherThread) {
    std::jthread([&] { surface.ReadLock(); }).join();
    std::jthread writer = Writer(first);
    AwaitWaiting(0, 1);
    surface.ReadUnlock();
    writer.join();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(surface.m_ReadCount, 0);
}

TEST_F(BufferLock, OwnerTakesBothHoldsAgainWhileOthersWait) {
    surface.WriteLock();
    std::jthread reader = Reader(first);
    std::jthread writer = Writer(second);
    AwaitWaiting(1, 1);
    surface.WriteLock();
    surface.ReadLock();
    surface.WriteUnlock();
    surface.ReadUnlock();
    EXPECT_EQ(surface.CreateFrameBuffer(1, 1, 0), 1);
    EXPECT_EQ(turns, 0);
    surface.WriteUnlock();
    reader.join();
    writer.join();
    EXPECT_EQ(first, 1) << "waiting readers go before the next writer";
}

TEST_F(BufferLock, FirstReaderPassesAWaitingWriterAndIsAloneWithBothHolds) {
    surface.ReadLock();
    std::jthread writer = Writer(second);
    AwaitWaiting(0, 1);
    surface.WriteLock();
    std::jthread reader = Reader(first);
    AwaitWaiting(1, 1);
    EXPECT_EQ(surface.FbCopy(&surface, 0, 0, 4, 4, 2, 2, 1, nullptr), 0);
    EXPECT_EQ(turns, 0);
    surface.WriteUnlock();
    reader.join();
    EXPECT_EQ(turns, 1) << "the shared hold that is left keeps the writer out";
    surface.ReadUnlock();
    writer.join();
    EXPECT_EQ(second, 2);
}

class OpenerAsksForExclusive : public BufferLock, public testing::WithParamInterface<bool> {};

// Whether it still reads or has left, the thread that opened the group waits for the others.
TEST_P(OpenerAsksForExclusive, WaitsForOtherReaders) {
    std::latch joined(1);
    std::atomic<bool> gone{false};
    surface.ReadLock();
    std::jthread other([&] {
        surface.ReadLock();
        joined.count_down();
        AwaitWaiting(0, 1);
        gone = true;
        surface.ReadUnlock();
    });
    joined.wait();
    if (GetParam()) {
        surface.ReadUnlock();
    }
    surface.WriteLock();
    EXPECT_TRUE(gone);
    surface.WriteUnlock();
}

INSTANTIATE_TEST_SUITE_P(StillReadingOrGone, OpenerAsksForExclusive, testing::Bool());

TEST_F(BufferLock, UnmatchedReleasesDoNothing) {
    surface.ReadUnlock();
    surface.WriteUnlock();
    EXPECT_EQ(surface.m_ReadCount, 0);
    surface.WriteLock();
    std::jthread([&] {
        surface.WriteUnlock();
        surface.ReadUnlock();
    }).join();
    std::jthread reader = Reader(first);
    AwaitWaiting(1, 0);
    EXPECT_EQ(turns, 0);
    surface.WriteUnlock();
    reader.join();
    EXPECT_EQ(first, 1);
}

TEST_F(BufferLock, HoldsKeepThreadsApart) {
    constexpr int kRounds = 2000;
    DWORD* const pixels = surface.GetBufferDWord();
    std::vector<std::jthread> threads;
    for (int id = 0; id < 4; ++id) {
        threads.emplace_back([&, id] {
            for (int i = 0; i < kRounds; ++i) {
                if (id < 2) {
                    surface.WriteLock();
                    ++pixels[0];
                    surface.FbCopy(&surface, 0, 0, 1, 1, 7, 7, 0, nullptr);
                    surface.WriteUnlock();
                } else {
                    surface.ReadLock();
                    const CKVFrameBuffer copy(surface);
                    surface.ReadUnlock();
                    ASSERT_EQ(copy.GetBufferDWord()[0], copy.GetBufferDWord()[63]);
                }
            }
        });
    }
    threads.clear();
    EXPECT_EQ(pixels[63], 2U * kRounds);
}

}  // namespace

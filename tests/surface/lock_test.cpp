#include <atomic>
#include <functional>
#include <latch>
#include <thread>

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
    template <auto kLock, auto kUnlock>
    std::jthread Visitor(int& turn) {
        return std::jthread([&] {
            (surface.*kLock)();
            turn = ++turns;
            (surface.*kUnlock)();
        });
    }
    std::jthread Writer(int& turn) {
        return Visitor<&CKVFrameBuffer::WriteLock, &CKVFrameBuffer::WriteUnlock>(turn);
    }
    std::jthread Reader(int& turn) {
        return Visitor<&CKVFrameBuffer::ReadLock, &CKVFrameBuffer::ReadUnlock>(turn);
    }

    CKVFrameBuffer surface{8, 8, 1};
    std::atomic<int> turns{0};
    int first = 0;
    int second = 0;
};

// The thread that opens the group has ended when this one, the last reader, leaves. Where no reader
// joins, this leaving is all that wakes the writer.
TEST_F(BufferLock, WaitingWriterLetsReadersJoinAndGetsItsTurnAfterTheLast) {
    for (const int joining : {1, 0}) {
        turns = 0;
        std::jthread([&] { surface.ReadLock(); }).join();
        std::jthread writer = Writer(second);
        AwaitWaiting(0, 1);
        if (joining != 0) {
            Reader(first).join();
        }
        EXPECT_EQ(turns, joining);
        surface.ReadUnlock();
        writer.join();
        EXPECT_EQ(second, joining + 1);
        EXPECT_EQ(surface.m_ReadCount, 0);
    }
}

TEST_F(BufferLock, OwnerTakesBothHoldsAgainWhileOthersWait) {
    surface.ReadUnlock();  // unmatched releases do nothing, here and on another thread
    surface.WriteUnlock();
    surface.WriteLock();
    std::jthread([&] { surface.WriteUnlock(); }).join();
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

// Whether it still reads or has left, the thread that opened the group waits for the others.
TEST_F(BufferLock, OpenerGetsExclusiveHoldOnceOtherReadersAreGone) {
    for (const bool leaves : {true, false}) {
        std::latch joined(1);
        std::atomic<bool> gone{false};
        surface.ReadLock();
        const std::jthread other([&] {
            surface.ReadLock();
            joined.count_down();
            AwaitWaiting(0, 1);
            gone = true;
            surface.ReadUnlock();
        });
        joined.wait();
        if (leaves) {
            surface.ReadUnlock();
        }
        surface.WriteLock();
        EXPECT_TRUE(gone);
        surface.WriteUnlock();
    }
}

// One that took no hold would never be seen to wait.
TEST_F(BufferLock, PixelOperationsTakeTheirHolds) {
    CKVFrameBuffer other(8, 8, 1);
    const std::function<void()> writing[] = {
        [&] { surface.Clear(); },
        [&] { surface.ClearCol(1); },
        [&] {
            surface.ClearCross({2, 2}, 1, 2);
        },
        [&] { surface.ImageChColor(1); },
        [&] { surface.ClearKey(); },
        [&] { surface.MakeLuminanceKey(1, 2); },
        [&] { EXPECT_EQ(other.GetKeyFreameBuffer(&surface), 0); },
        [&] { EXPECT_EQ(surface.FbCopy(&other, 0, 0, 8, 8, 0, 0, 1, nullptr), 0); },
    };
    for (const auto& operation : writing) {
        surface.ReadLock();
        const std::jthread writer(operation);
        AwaitWaiting(0, 1);
        surface.ReadUnlock();
    }
    const std::function<void()> reading[] = {
        [&] { EXPECT_EQ(surface.GetKeyFreameBuffer(&other), 0); },
        [&] { EXPECT_EQ(other.FbCopy(&surface, 0, 0, 8, 8, 0, 0, 1, nullptr), 0); },
    };
    for (const auto& operation : reading) {
        surface.WriteLock();
        const std::jthread reader(operation);
        AwaitWaiting(1, 0);
        surface.WriteUnlock();
    }
    EXPECT_EQ(surface.m_ReadCount, 0);
}

// Two threads write, two read: pixels 0 and 63 differ only inside an exclusive hold.
TEST_F(BufferLock, HoldsKeepThreadsApart) {
    const auto write = [this] {
        for (int i = 0; i < 2000; ++i) {
            surface.WriteLock();
            ++surface.GetBufferDWord()[0];
            surface.FbCopy(&surface, 0, 0, 1, 1, 7, 7, 0, nullptr);
            surface.WriteUnlock();
        }
    };
    const auto read = [this] {
        for (int i = 0; i < 2000; ++i) {
            const CKVFrameBuffer copy(surface);
            ASSERT_EQ(copy.GetBufferDWord()[0], copy.GetBufferDWord()[63]);
        }
    };
    {
        const std::jthread threads[] = {std::jthread(write), std::jthread(read),
                                        std::jthread(write), std::jthread(read)};
    }
    EXPECT_EQ(surface.GetBufferDWord()[63], 4000U);
}

}  // namespace

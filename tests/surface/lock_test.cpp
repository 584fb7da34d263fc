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
        KVBufferLockProbe::AwaitWaiting(m_Surface, readers, writers);
    }

    // A thread that takes a hold, notes its turn and gives the hold back.
    template <auto kLock, auto kUnlock>
    std::jthread Visitor(int& turn) {
        return std::jthread([&] {
            (m_Surface.*kLock)();
            turn = ++m_Turns;
            (m_Surface.*kUnlock)();
        });
    }
    std::jthread Writer(int& turn) {
        return Visitor<&CKVFrameBuffer::WriteLock, &CKVFrameBuffer::WriteUnlock>(turn);
    }
    std::jthread Reader(int& turn) {
        return Visitor<&CKVFrameBuffer::ReadLock, &CKVFrameBuffer::ReadUnlock>(turn);
    }

    CKVFrameBuffer m_Surface{8, 8, 1};
    std::atomic<int> m_Turns{0};
    int m_First = 0;
    int m_Second = 0;
};

// The thread that opens the group has ended when this one, the last reader, leaves. Where no reader
// joins, this leaving is all that wakes the writer.
TEST_F(BufferLock, WaitingWriterLetsReadersJoinAndGetsItsTurnAfterTheLast) {
    for (const int joining : {1, 0}) {
        m_Turns = 0;
        std::jthread([&] { m_Surface.ReadLock(); }).join();
        std::jthread writer = Writer(m_Second);
        AwaitWaiting(0, 1);
        if (joining != 0) {
            Reader(m_First).join();
        }
        EXPECT_EQ(m_Turns, joining);
        m_Surface.ReadUnlock();
        writer.join();
        EXPECT_EQ(m_Second, joining + 1);
        EXPECT_EQ(m_Surface.m_ReadCount, 0);
    }
}

TEST_F(BufferLock, OwnerTakesBothHoldsAgainWhileOthersWait) {
    m_Surface.ReadUnlock();  // unmatched releases do nothing, here and on another thread
    m_Surface.WriteUnlock();
    m_Surface.WriteLock();
    std::jthread([&] { m_Surface.WriteUnlock(); }).join();
    std::jthread reader = Reader(m_First);
    std::jthread writer = Writer(m_Second);
    AwaitWaiting(1, 1);
    m_Surface.WriteLock();
    m_Surface.ReadLock();
    m_Surface.WriteUnlock();
    m_Surface.ReadUnlock();
    EXPECT_EQ(m_Surface.CreateFrameBuffer(1, 1, 0), 1);
    EXPECT_EQ(m_Turns, 0);
    m_Surface.WriteUnlock();
    reader.join();
    writer.join();
    EXPECT_EQ(m_First, 1) << "waiting readers go before the next writer";
}

TEST_F(BufferLock, FirstReaderPassesAWaitingWriterAndIsAloneWithBothHolds) {
    m_Surface.ReadLock();
    std::jthread writer = Writer(m_Second);
    AwaitWaiting(0, 1);
    m_Surface.WriteLock();
    std::jthread reader = Reader(m_First);
    AwaitWaiting(1, 1);
    EXPECT_EQ(m_Surface.FbCopy(&m_Surface, 0, 0, 4, 4, 2, 2, 1, nullptr), 0);
    EXPECT_EQ(m_Turns, 0);
    m_Surface.WriteUnlock();
    reader.join();
    EXPECT_EQ(m_Turns, 1) << "the shared hold that is left keeps the writer out";
    m_Surface.ReadUnlock();
    writer.join();
    EXPECT_EQ(m_Second, 2);
}

// Whether it still reads or has left, the thread that opened the group waits for the others.
TEST_F(BufferLock, OpenerGetsExclusiveHoldOnceOtherReadersAreGone) {
    for (const bool leaves : {true, false}) {
        std::latch joined(1);
        std::atomic<bool> gone{false};
        m_Surface.ReadLock();
        const std::jthread other([&] {
            m_Surface.ReadLock();
            joined.count_down();
            AwaitWaiting(0, 1);
            gone = true;
            m_Surface.ReadUnlock();
        });
        joined.wait();
        if (leaves) {
            m_Surface.ReadUnlock();
        }
        m_Surface.WriteLock();
        EXPECT_TRUE(gone);
        m_Surface.WriteUnlock();
    }
}

// One that took no hold would never be seen to wait.
TEST_F(BufferLock, PixelOperationsTakeTheirHolds) {
    CKVFrameBuffer other(8, 8, 1);
    const std::function<void()> writing[] = {
        [&] { m_Surface.Clear(); },
        [&] { m_Surface.ClearCol(1); },
        [&] {
            m_Surface.ClearCross({2, 2}, 1, 2);
        },
        [&] { m_Surface.ImageChColor(1); },
        [&] { m_Surface.ClearKey(); },
        [&] { m_Surface.MakeLuminanceKey(1, 2); },
        [&] { EXPECT_EQ(other.GetKeyFreameBuffer(&m_Surface), 0); },
        [&] { EXPECT_EQ(m_Surface.FbCopy(&other, 0, 0, 8, 8, 0, 0, 1, nullptr), 0); },
    };
    for (const auto& operation : writing) {
        m_Surface.ReadLock();
        const std::jthread writer(operation);
        AwaitWaiting(0, 1);
        m_Surface.ReadUnlock();
    }
    const std::function<void()> reading[] = {
        [&] { EXPECT_EQ(m_Surface.GetKeyFreameBuffer(&other), 0); },
        [&] { EXPECT_EQ(other.FbCopy(&m_Surface, 0, 0, 8, 8, 0, 0, 1, nullptr), 0); },
    };
    for (const auto& operation : reading) {
        m_Surface.WriteLock();
        const std::jthread reader(operation);
        AwaitWaiting(1, 0);
        m_Surface.WriteUnlock();
    }
    EXPECT_EQ(m_Surface.m_ReadCount, 0);
}

// Two threads write, two read: pixels 0 and 63 differ only inside an exclusive hold.
TEST_F(BufferLock, HoldsKeepThreadsApart) {
    const auto write = [this] {
        for (int i = 0; i < 2000; ++i) {
            m_Surface.WriteLock();
            ++m_Surface.GetBufferDWord()[0];
            m_Surface.FbCopy(&m_Surface, 0, 0, 1, 1, 7, 7, 0, nullptr);
            m_Surface.WriteUnlock();
        }
    };
    const auto read = [this] {
        for (int i = 0; i < 2000; ++i) {
            const CKVFrameBuffer copy(m_Surface);
            ASSERT_EQ(copy.GetBufferDWord()[0], copy.GetBufferDWord()[63]);
        }
    };
    {
        const std::jthread threads[] = {std::jthread(write), std::jthread(read),
                                        std::jthread(write), std::jthread(read)};
    }
    EXPECT_EQ(m_Surface.GetBufferDWord()[63], 4000U);
}

}  // namespace

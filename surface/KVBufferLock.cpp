// The lock of a frame buffer: who passes, who waits, who goes next.

#include "KVBufferLock.h"

#include <algorithm>
#include <atomic>

// All state lives under one mutex; a request waits on one condition variable until its rule below
// holds. Every change that can make a rule true wakes all waiters: groups are small, and a waiter
// that still may not pass goes back to sleep.

namespace {

// A number of its own for every thread. The system's thread ids are given out again once a thread
// has ended, and a shared hold may outlive the thread that took it.
std::uint64_t ThisThread() {
    static std::atomic<std::uint64_t> last{0};
    thread_local const std::uint64_t self = ++last;
    return self;
}

}  // namespace

LONG KVBufferLock::OwnShared(std::uint64_t self) const {
    return m_Opener == self ? m_OpenerHolds : 0;
}

// An open group takes anybody. A new group gives way to a waiting writer, except in the turn that
// the end of an exclusive hold gives to the readers.
bool KVBufferLock::ReaderMayPass(std::uint64_t self) const {
    if (m_OwnerDepth > 0) {
        return m_Owner == self;
    }
    return m_ReadCount > 0 || m_WaitingWriters == 0 || m_ReadersTurn;
}

// The opener of the group stands above all turns: those who wait, wait for its shared hold to end.
bool KVBufferLock::WriterMayPass(std::uint64_t self) const {
    const LONG own = OwnShared(self);
    const bool yields = own == 0 && m_ReadersTurn && m_WaitingReaders > 0;
    return m_OwnerDepth == 0 && m_ReadCount == own && !yields;
}

void KVBufferLock::ReadLock() {
    const std::uint64_t self = ThisThread();
    std::unique_lock lock(m_Mutex);
    ++m_WaitingReaders;
    m_Changed.wait(lock, [&] { return ReaderMayPass(self); });
    --m_WaitingReaders;
    m_ReadersTurn = false;
    if (m_ReadCount == 0) {
        m_Opener = self;
        m_OpenerHolds = 0;
        m_Changed.notify_all();  // readers that wait may join now
    }
    ++m_ReadCount;
    if (m_Opener == self) {
        ++m_OpenerHolds;
    }
}

void KVBufferLock::ReadUnlock() {
    const std::lock_guard lock(m_Mutex);
    if (m_ReadCount == 0) {
        return;
    }
    --m_ReadCount;
    if (OwnShared(ThisThread()) > 0) {
        --m_OpenerHolds;
    }
    // A hold may be given up by a thread that did not take it.
    m_OpenerHolds = std::min(m_OpenerHolds, m_ReadCount);
    if (m_ReadCount == m_OpenerHolds) {
        m_Changed.notify_all();
    }
}

void KVBufferLock::WriteLock() {
    const std::uint64_t self = ThisThread();
    std::unique_lock lock(m_Mutex);
    if (m_OwnerDepth == 0 || m_Owner != self) {
        ++m_WaitingWriters;
        m_Changed.wait(lock, [&] { return WriterMayPass(self); });
        --m_WaitingWriters;
        m_Owner = self;
    }
    ++m_OwnerDepth;
}

void KVBufferLock::WriteUnlock() {
    const std::lock_guard lock(m_Mutex);
    if (m_OwnerDepth == 0 || m_Owner != ThisThread()) {
        return;
    }
    if (--m_OwnerDepth == 0) {
        m_ReadersTurn = m_WaitingReaders > 0;
        m_Changed.notify_all();
    }
}

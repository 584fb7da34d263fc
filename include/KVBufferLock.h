#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/export.h"
#include "platform/types.h"

/// The reader-writer lock of one frame buffer.
///
/// Guarantees:
/// - Shared holds pass one another. A waiting writer does not stop a reader that joins an open
///   group of readers, so an unbroken chain of overlapping readers keeps writers waiting.
/// - The exclusive hold is alone: every request of another thread waits for its end, also while its
///   owner has shared holds beside it.
/// - The owner of the exclusive hold may take it again and may take shared holds, whoever waits.
/// - The thread that opened the group of readers may take the exclusive hold on top of its shared
///   one. It gets it as soon as the shared holds of others are gone, ahead of waiting writers.
/// - Once a group of readers has ended, a waiting writer goes before a new group; once a writer has
///   ended, waiting readers go before the next writer. Neither side can shut the other out.
/// - The last reader out may be another thread than the first one in. A hold that is released by
///   another thread than its taker counts as one of those that joined: who opened the group and
///   will ask for the exclusive hold must give back its own shared holds itself.
/// - Unmatched releases do nothing.
///
/// A reader that joined a group and did not open it must not ask for the exclusive hold while it
/// keeps its shared one: it would wait for itself.
class KVDRAW_API KVBufferLock {
  public:
    /// readCount is where the number of open shared holds is kept; it must outlive the lock.
    explicit KVBufferLock(LONG& readCount) : m_ReadCount(readCount) {}
    KVBufferLock(const KVBufferLock&) = delete;
    KVBufferLock& operator=(const KVBufferLock&) = delete;

    void ReadLock();
    void ReadUnlock();
    void WriteLock();
    void WriteUnlock();

  private:
    friend struct KVBufferLockProbe;  ///< lets a test see who waits

    bool ReaderMayPass(std::uint64_t self) const;
    bool WriterMayPass(std::uint64_t self) const;
    LONG OwnShared(std::uint64_t self) const;

    std::mutex m_Mutex;  ///< guards all that follows, the count included
    std::condition_variable m_Changed;
    LONG& m_ReadCount;
    std::uint64_t m_Owner = 0;   ///< of the exclusive hold; 0 when free
    LONG m_OwnerDepth = 0;       ///< how many times the owner has taken it
    std::uint64_t m_Opener = 0;  ///< thread that opened the present group of readers
    LONG m_OpenerHolds = 0;      ///< the opener's share of the count
    LONG m_WaitingReaders = 0;
    LONG m_WaitingWriters = 0;
    bool m_ReadersTurn = false;  ///< a writer has ended while readers waited
};

#pragma once

#include <CKVFrameBuffer.h>

namespace kv {

/// Shared hold on a surface for the length of a scope.
class SharedHold {
  public:
    explicit SharedHold(const CKVFrameBuffer& surface) : m_Surface(surface) {
        m_Surface.ReadLock();
    }
    ~SharedHold() { m_Surface.ReadUnlock(); }
    SharedHold(const SharedHold&) = delete;
    SharedHold& operator=(const SharedHold&) = delete;

  private:
    const CKVFrameBuffer& m_Surface;
};

/// Exclusive hold on a surface for the length of a scope.
class ExclusiveHold {
  public:
    explicit ExclusiveHold(CKVFrameBuffer& surface) : m_Surface(surface) { m_Surface.WriteLock(); }
    ~ExclusiveHold() { m_Surface.WriteUnlock(); }
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;

  private:
    CKVFrameBuffer& m_Surface;
};

}  // namespace kv

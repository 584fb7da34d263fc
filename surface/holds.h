#pragma once

#include <CKVFrameBuffer.h>

namespace kv {

/// Shared hold on a surface for the length of a scope.
class SharedHold {
  public:
    explicit SharedHold(const CKVFrameBuffer& surface) : surface_(surface) { surface_.ReadLock(); }
    ~SharedHold() { surface_.ReadUnlock(); }
    SharedHold(const SharedHold&) = delete;
    SharedHold& operator=(const SharedHold&) = delete;

  private:
    const CKVFrameBuffer& surface_;
};

/// Exclusive hold on a surface for the length of a scope.
class ExclusiveHold {
  public:
    explicit ExclusiveHold(CKVFrameBuffer& surface) : surface_(surface) { surface_.WriteLock(); }
    ~ExclusiveHold() { surface_.WriteUnlock(); }
    ExclusiveHold(const ExclusiveHold&) = delete;
    ExclusiveHold& operator=(const ExclusiveHold&) = delete;

  private:
    CKVFrameBuffer& surface_;
};

}  // namespace kv

#pragma once

#include "platform/export.h"
#include "platform/types.h"

/// What the mask and the coverage bitmap share. Rows run top down; the bitmap owns its bytes, and
/// copies are deep (a copy whose memory cannot be had is left empty).
///
/// Create results: 0 done, 1 a store exists already (nothing changes), 2 no memory or a size whose
/// bytes do not fit 32 bits (left empty), 4 width or height below 1. Delete: 0 done, 3 nothing
/// there.
class KVDRAW_API KVBitmap {
  public:
    BYTE* Base = nullptr;  ///< the allocation; null when empty
    BYTE* Bits = nullptr;  ///< first byte of the top row
    LONG Width = 0;        ///< pixels
    LONG Height = 0;       ///< pixels
    DWORD Pitch = 0;       ///< bytes a row
    DWORD Size = 0;        ///< Pitch times Height

    int Delete();

  protected:
    KVBitmap() = default;
    KVBitmap(const KVBitmap& other);
    KVBitmap& operator=(const KVBitmap& other);
    ~KVBitmap();

    /// Allocates height rows of the given pitch, all zero. The pitch may exceed 32 bits.
    int CreateRows(LONG width, LONG height, std::uint64_t pitch);
};

#pragma once

#include "KVBitmap.h"

/// The one-bit mask, drawn enlarged: bit 7 of a byte is the leftmost of its eight pixels, a set bit
/// is a covered pixel, and a row is a whole number of 16 pixels. Who draws the mask
/// leaves the bits that pad a row 0: they are reduced like all others.
class KVDRAW_API CKVMonoBitmap : public KVBitmap {
  public:
    CKVMonoBitmap() = default;
    CKVMonoBitmap(const CKVMonoBitmap&) = default;
    CKVMonoBitmap& operator=(const CKVMonoBitmap&) = default;
    virtual ~CKVMonoBitmap() = default;

    /// Makes a zeroed mask of the given size in enlarged pixels. Results as KVBitmap tells.
    int Create(LONG width, LONG height);
};

#pragma once

#include "KVBitmap.h"

/// Eight-bit coverage at final size: 0 none, 255 full. A row is an even number of bytes.
class KVDRAW_API CKVGrayBitmap : public KVBitmap {
  public:
    CKVGrayBitmap() = default;
    CKVGrayBitmap(const CKVGrayBitmap&) = default;
    CKVGrayBitmap& operator=(const CKVGrayBitmap&) = default;
    virtual ~CKVGrayBitmap() = default;

    /// Makes a zeroed bitmap of the given size in final pixels. Results as KVBitmap tells.
    int Create(LONG width, LONG height);
};

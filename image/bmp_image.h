#pragma once

#include <cstdint>

#include <CKVFrameBuffer.h>

// Pictures in 24-bit BMP files. 0, or -1 when the file or memory fails.
namespace kv {

/// Only files of 24 bits a pixel. The key flag is 0: there are no keys. A picture that a broken
/// file filled in part is left.
std::int64_t LoadBmpImage(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);

/// -1, too, with no file made, for a surface that is null or has no store.
int SaveBmpImage(const char* name, const CKVFrameBuffer* fb);

}  // namespace kv

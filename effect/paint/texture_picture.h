#pragma once

#include <CKVFrameBuffer.h>

namespace kv {

/// Reads a picture file of any known format into the surface; false when that fails.
bool LoadTexture(const char* file, CKVFrameBuffer& picture);

}  // namespace kv

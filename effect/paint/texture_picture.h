#pragma once

#include <CKVFrameBuffer.h>

#include "base/outcome.h"

namespace kv {

/// Reads a picture file of any known format into the surface.
Outcome LoadTexture(const char* file, CKVFrameBuffer& picture);

}  // namespace kv

#pragma once

#include <KVDraw.h>

namespace gallery {

/// Writes a picture, key included, as PNG. False when the file cannot be written.
bool WritePng(const char* name, const CKVFrameBuffer& picture);

}  // namespace gallery
